#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QWidget>

/// Handles events until a widget of the window has painted, or of any other window but it.
class Painting : public QObject
{
public:
    enum class Where { InWindow, Elsewhere };

    explicit Painting(const QWidget& window, Where where = Where::InWindow)
        : m_window(window)
        , m_isElsewhere(where == Where::Elsewhere)
    {
        qApp->installEventFilter(this);
    }

    void wait()
    {
        QElapsedTimer timer;
        timer.start();
        while (!m_isDone && timer.elapsed() < 10000) {
            QApplication::processEvents();
        }
        QApplication::processEvents();
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && watched->isWidgetType() &&
            (static_cast<QWidget*>(watched)->window() != &m_window) == m_isElsewhere) {
            m_isDone = true;
        }
        return false;
    }

private:
    const QWidget& m_window;
    const bool m_isElsewhere;
    bool m_isDone = false;
};
