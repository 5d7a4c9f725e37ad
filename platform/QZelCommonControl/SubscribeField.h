#pragma once

#include <QLineEdit>

/// The text of a selector, for reading: elided where it is too long, with the whole text as tool tip.
class SubscribeField : public QLineEdit
{
    Q_OBJECT

public:
    explicit SubscribeField(QWidget* parent);

    /// Missing: the value that the text names is gone.
    void show(const QString& text, bool isMissing);

    bool isMissing() const { return m_isMissing; }

signals:
    void clicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    bool m_isMissing = false;
};
