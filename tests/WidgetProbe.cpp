#include <QAbstractSpinBox>
#include <QApplication>
#include <QGenericPlugin>
#include <QLabel>
#include <QLineEdit>
#include <QLocalServer>
#include <QLocalSocket>
#include <QMessageBox>

#include <algorithm>

namespace {

QString textOf(const QWidget* widget)
{
    if (const auto* const box = qobject_cast<const QMessageBox*>(widget)) {
        return box->text();
    }
    if (const auto* const label = qobject_cast<const QLabel*>(widget)) {
        return label->text();
    }
    const auto* edit = qobject_cast<const QLineEdit*>(widget);
    edit = edit ? edit : widget->findChild<QLineEdit*>();
    return edit ? edit->text() : QString();
}

// Every visible widget of an object or class name, as a line each: "x y width height text", from the top.
QByteArray answerTo(const QString& name)
{
    QVector<QPair<QRect, QString>> found;
    for (const QWidget* const widget : QApplication::allWidgets()) {
        if (widget->isVisible() &&
            (widget->objectName() == name || QLatin1String(widget->metaObject()->className()) == name)) {
            found << qMakePair(QRect(widget->mapToGlobal(QPoint()), widget->size()), textOf(widget));
        }
    }
    std::stable_sort(found.begin(), found.end(), [](const auto& first, const auto& second) {
        return std::make_pair(first.first.y(), first.first.x()) <
               std::make_pair(second.first.y(), second.first.x());
    });
    QString lines;
    for (const auto& [place, text] : qAsConst(found)) {
        lines += QStringLiteral("%1 %2 %3 %4 %5\n")
                     .arg(place.x())
                     .arg(place.y())
                     .arg(place.width())
                     .arg(place.height())
                     .arg(text);
    }
    return lines.toUtf8() + "end\n";
}

} // namespace

/// Runs inside the workbench under test, which knows nothing of it, and tells where its widgets are.
class WidgetProbe : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "WidgetProbe.json")

public:
    QObject* create(const QString&, const QString& serverName) override
    {
        auto* const server = new QLocalServer(this);
        connect(server, &QLocalServer::newConnection, this, [server] {
            auto* const socket = server->nextPendingConnection();
            connect(socket, &QLocalSocket::readyRead, socket, [socket] {
                while (socket->canReadLine()) {
                    socket->write(answerTo(QString::fromUtf8(socket->readLine()).trimmed()));
                }
            });
        });
        if (!server->listen(serverName)) {
            qWarning("widget probe: %s", qPrintable(server->errorString()));
        }
        return server;
    }
};

#include "WidgetProbe.moc"
