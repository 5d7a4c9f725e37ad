#pragma once

#include "PanelFixture.h"
#include "QIfModuleMainView.h"

#include <QDialog>

/// Works a panel in a host's dialog as a user does, step by step. A step is a line of text, for example
/// "type m_ediNote:1 hole": what is done, the widget's object name with its row, and a text.
class PanelTour : public PanelFixture<QIfModuleMainView>
{
public:
    /// Thrown by perform() once the panel has been destroyed.
    struct PanelGone
    {};

    /// What tour.txt says is stored, with values to subscribe of which the core refuses the last.
    PanelTour();
    ~PanelTour() { core.fault = nullptr; }
    Q_DISABLE_COPY(PanelTour)

    /// The lines of a file in tests/tour, without comments. In tour.txt steps follow "> ".
    static QStringList linesOf(const QString& name);

    /// False if the widget is missing or not visible; nothing is done then.
    bool perform(const QString& action);
    /// The tour through all that the panel offers.
    void performAll();
    QWidget* find(const QString& target) const;
    /// To be called before a command throws: a combo that an exception passes leaves a reference to its
    /// item's text behind, which is no leak while the text is kept.
    void keepItemTexts() const;

    /// The conditions as the widgets show them, in the form in which they are stored.
    QStringList shownRows() const;
    QByteArray shown() const;
    bool isModeStored() const;

    QDialog host;
    /// Called after each event, of which a step can have several; may destroy the panel.
    std::function<void()> afterEvent = [] {};
    /// Called for each command; a result it returns is the answer, and the command has no effect. It may
    /// throw.
    std::function<std::optional<ZelCore::CommandResult>(const QString&)> answer = [](auto&) {
        return std::nullopt;
    };
    /// Texts of the warning boxes that were shown and closed.
    QStringList warnings;

private:
    void happened();
    void closeWarning();

    QTimer m_warningWatch;
};
