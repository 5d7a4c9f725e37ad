#include "WarningBox.h"

#include <QMessageBox>
#include <QPointer>

void WarningBox::show(QWidget* parent, const QString& text)
{
    const QPointer<QMessageBox> box =
        new QMessageBox(QMessageBox::Warning, QString(), text, QMessageBox::Ok, parent);
    box->exec();
    delete box;
}
