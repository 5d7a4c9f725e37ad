#pragma once

#include <QObject>

class QLabel;
class QLineEdit;
class QWidget;

/// Condenses the text of a widget as far as it takes to show the whole of it, to half its width at most:
/// what is left of a bound or a name that is cut off would read as another one.
class CondensedText : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the widget.
    explicit CondensedText(QLineEdit* field);
    explicit CondensedText(QLabel* label);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fit(QWidget& widget, const QString& text, int room) const;
    void fitField();
    void fitLabel();

    QLineEdit* m_field = nullptr;
    QLabel* m_label = nullptr;
};
