#pragma once

#include <QObject>

class QAbstractButton;

/// Lets Enter press a focused button that is no dialog's default: an auto-default button would also answer
/// to Enter in the fields of a host's dialog.
class ClickOnEnter : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the button.
    explicit ClickOnEnter(QAbstractButton* button);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QAbstractButton* m_button;
};
