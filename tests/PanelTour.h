#pragma once

#include "FakeCore.h"
#include "QIfModuleMainView.h"

#include <QtTest>
#include <QtWidgets>

/// Works a panel of module 7 in a host's dialog as a user does, over a fake core that holds a new module and
/// offers values to subscribe, of which it refuses the last.
///
/// A step is a line of text: what is done, in most cases a widget, and a text.
///
///     show, hide                  the panel
///     click WIDGET                in its middle
///     type, paste WIDGET TEXT     in place of what is there
///     key WIDGET KEY              for example Shift+Tab
///     disable WIDGET
///     see WIDGET                  reports its text, and the tool tips of its signs
///     store, bind KEY=VALUE       in the core, past the panel
///     refuse COMMAND              those that begin so, until the next such step
///
/// A widget is an object name, with ":1" for example that in the second row; "focus"; "slider"; or "input:1".
class PanelTour
{
public:
    PanelTour();
    ~PanelTour() { core.fault = nullptr; }

    /// The lines of a file in tests/tour, without comments. In transcripts steps follow "> ".
    static QStringList linesOf(const QString& name);

    /// Shows the panel with these conditions stored.
    void show(const QByteArray& ifText = "0");
    /// False if the widget is missing or not visible; nothing is done then.
    bool perform(const QString& step);
    /// The tour through all that the panel offers, for as long as there is a panel.
    void performAll();

    template <typename Widget = QWidget>
    Widget* find(const QString& target) const
    {
        return qobject_cast<Widget*>(findWidget(target));
    }
    /// In row order.
    template <typename Widget = QWidget>
    QList<Widget*> all(const QString& name) const
    {
        return host.findChildren<Widget*>(name);
    }

    /// The conditions as the widgets show them, in the form in which they are stored.
    QStringList shownRows() const;
    QByteArray shown() const;
    QByteArray stored() const { return core.parameters["IFText"]; }
    bool isModeStored() const;

    FakeCore core;
    QDialog host;
    QWidget* container = new QWidget(&host);
    QPointer<QIfModuleMainView> panel = new QIfModuleMainView(7, container);
    /// Called after each event, of which a step can have several; may destroy the panel.
    std::function<void()> afterEvent = [] {};
    /// What is to be seen: "= " and a text, "! " and that of a warning box, which is then closed; or nothing.
    QStringList reports;

private:
    QWidget* findWidget(const QString& target) const;
    void work(QWidget* widget, const QString& verb, const QString& text);
    void happened();
    void closeWarning();

    QTimer m_warningWatch;
};
