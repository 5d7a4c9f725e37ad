#pragma once

#include <QEvent>
#include <QWidget>

#include <functional>
#include <utility>

/// Sets the texts of a widget: at once, and again whenever the language has changed. Belongs to the widget.
class LanguageChange : public QObject
{
    Q_OBJECT

public:
    LanguageChange(QWidget* widget, std::function<void()> retranslate)
        : QObject(widget)
        , m_retranslate(std::move(retranslate))
    {
        m_retranslate();
        widget->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::LanguageChange) {
            m_retranslate();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> m_retranslate;
};
