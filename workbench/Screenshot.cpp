#include "Screenshot.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QImageWriter>
#include <QPixmap>
#include <QTimer>
#include <QWidget>
#include <QWindow>

namespace {
constexpr int settlingTime = 300; // ms
}

bool Screenshot::write(QWidget& window, const QString& file, QString* error)
{
    window.show();
    while (!window.windowHandle()->isExposed()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    // Layouts and views that follow once the window is visible.
    QEventLoop settling;
    QTimer::singleShot(settlingTime, &settling, &QEventLoop::quit);
    settling.exec();

    QImageWriter writer(file, "png");
    if (!writer.write(window.grab().toImage())) {
        *error = QCoreApplication::translate("Screenshot", "The picture %1 can't be written: %2")
                     .arg(file, writer.errorString());
        return false;
    }
    return true;
}
