#pragma once

#include "FakeCore.h"

#include <QApplication>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <QtTest>

/// A panel of module 7 inside a host's window, over a fake core that holds a new module. The panel's
/// widgets are found by object name; those of rows come in row order.
template <typename Panel>
class PanelFixture
{
public:
    PanelFixture()
    {
        core.binaryData[QStringLiteral("IFText")] = "0";
        core.runParams[QStringLiteral("LogicalMode")] = "1";
        window.setLayout(new QVBoxLayout);
        container->setLayout(new QVBoxLayout);
        window.layout()->addWidget(container);
        panel = new Panel(7, container);
        container->layout()->addWidget(panel);
        window.resize(700, 600);
    }

    /// Shows the window with these conditions stored.
    void show(const QByteArray& ifText = "0")
    {
        core.binaryData[QStringLiteral("IFText")] = ifText;
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        core.takeCommands();
    }

    template <typename Widget>
    QList<Widget*> all(const char* name) const
    {
        return panel->template findChildren<Widget*>(QString::fromLatin1(name));
    }
    template <typename Widget>
    Widget* at(const char* name, int row = 0) const
    {
        return all<Widget>(name).value(row);
    }

    void add(const char* type)
    {
        at<QComboBox>("cbox_typeSelect")->setCurrentText(QString::fromLatin1(type));
        at<QPushButton>("btn_add")->click();
    }

    /// A field of the host beside the panel.
    QLineEdit* addField(const QString& text)
    {
        auto* const field = new QLineEdit(text);
        window.layout()->addWidget(field);
        return field;
    }

    QByteArray stored() const { return core.binaryData.value(QStringLiteral("IFText")); }

    FakeCore core;
    QWidget window;
    QWidget* container = new QWidget;
    QPointer<Panel> panel;
};

/// Replaces what stands in a field, key by key; text outside ASCII comes as an input method sends it.
inline void typeInto(QWidget* field, const QString& text)
{
    field->setFocus();
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(field, Qt::Key_Delete);
    if (text.toLatin1() == text.toUtf8()) {
        QTest::keyClicks(field, text);
    } else {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(field, &event);
    }
}

/// Closes the next modal box, a warning with only Ok, and keeps its text. The action runs while it is open.
class NextWarning : public QTimer
{
public:
    explicit NextWarning(const std::function<void()>& action = [] {})
    {
        callOnTimeout([this, action] {
            const QPointer<QMessageBox> box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box && box->icon() == QMessageBox::Warning && box->windowTitle().isEmpty() &&
                box->standardButtons() == QMessageBox::Ok) {
                stop();
                text = box->text();
                hasParent = box->parentWidget() != nullptr;
                action();
                if (box) {
                    box->accept();
                }
            }
        });
        start(10);
    }

    QString text;
    bool hasParent = false;
};
