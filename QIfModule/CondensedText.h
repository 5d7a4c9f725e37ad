#pragma once

#include <QObject>

class QDoubleSpinBox;
class QLineEdit;
class QWidget;

/// Condenses the text of a widget until the whole of it is shown, to half its width at most. A bound that
/// still does not fit ends in an ellipsis: cut off without a sign it would read as another number.
class CondensedText : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the widget, a label or the field of a spin box.
    explicit CondensedText(QWidget* widget);
    CondensedText(const QDoubleSpinBox& spinBox, QLineEdit* field);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fit();
    bool isCut(const QFont& font) const;

    QWidget* m_pWidget;
    QLineEdit* m_ediBound = nullptr;
};
