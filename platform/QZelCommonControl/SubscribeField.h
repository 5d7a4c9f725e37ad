#pragma once

#include <QLineEdit>

/// The subscribe text of a selector, for reading: the name of the value large, its group small above it,
/// both condensed and then elided where they are too long, with the whole text as tool tip.
class SubscribeField : public QLineEdit
{
    Q_OBJECT

public:
    /// What is known of the value that the text names; an unread binding has no text.
    enum class Source { Present, Missing, Unread };

    explicit SubscribeField(QWidget* parent);

    void setBinding(const QString& text, Source source);
    Source source() const { return m_source; }

signals:
    void clicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    Source m_source = Source::Present;
};
