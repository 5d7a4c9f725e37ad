#pragma once

#include "PanelFixture.h"
#include "QIfModuleMainView.h"

#include <QZelCommonControl/ButtonSelecterView.h>

/// Works a panel as a user does, in single events that a test may count, follow and answer. A widget
/// that is not there, since a fault left its row out, is passed over.
class PanelTour : public PanelFixture<QIfModuleMainView>
{
public:
    /// Ends a tour whose panel was destroyed after an event.
    struct PanelGone
    {};

    PanelTour();
    ~PanelTour();
    Q_DISABLE_COPY(PanelTour)

    /// A walk through all that the panel offers.
    void run();
    /// An edit that the core takes: afterwards all that is shown is stored.
    void edit();

    void press(QWidget* widget);
    void click(QWidget* widget);
    void key(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    void type(QWidget* field, const QString& text);
    /// Opens the selector's menu and picks an entry.
    void choose(ButtonSelecterView* selecter, const QString& subscribeName);
    void setVisible(bool visible);

    /// The conditions as the widgets show them, in the form in which they are stored.
    QByteArray shown() const;
    QByteArray shownMode() const;
    QByteArray storedMode() const { return core.runParams.value(QStringLiteral("LogicalMode")); }

    /// Selectors of the inputs, in row order.
    QList<ButtonSelecterView*> inputs() const;

    /// Runs after each event, numbered from 1; may destroy the panel.
    std::function<void(int number)> afterEvent;
    /// Answers a command in place of the core, as FakeCore::fault does.
    std::function<std::optional<ZelCore::CommandResult>(int number, const QString& line)> answer;
    int commands = 0;
    int events = 0;
    int warnings = 0;

    /// Refused by the core, although the menu has it.
    static const QString refusedSource;

private:
    void happened();
    void closeWarning();

    QTimer m_warningWatch;
};
