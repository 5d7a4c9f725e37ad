#include "Screenshot.h"

#include <QCoreApplication>
#include <QImageWriter>
#include <QPixmap>
#include <QWidget>
#include <QWindow>

bool Screenshot::write(QWidget& window, const QString& file, QString* error)
{
    window.show();
    while (!window.windowHandle()->isExposed()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    // Layouts that were asked for while the window became visible.
    QCoreApplication::processEvents();

    QImageWriter writer(file, "png");
    if (!writer.write(window.grab().toImage())) {
        *error = QCoreApplication::translate("Screenshot", "The picture %1 can't be written: %2")
                     .arg(file, writer.errorString());
        return false;
    }
    return true;
}
