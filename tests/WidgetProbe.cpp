#include <QApplication>
#include <QGenericPlugin>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLineEdit>
#include <QLocalServer>
#include <QLocalSocket>
#include <QMap>

#include <utility>

namespace {

// Every visible widget of an object or class name from the top: [[x, y, width, height, text], ...].
QByteArray answerTo(const QString& name)
{
    const auto placeOf = [](const QWidget* widget) { return widget->mapToGlobal(QPoint()); };
    QMultiMap<std::pair<int, int>, const QWidget*> found;
    for (const QWidget* const widget : QApplication::allWidgets()) {
        if (widget->isVisible() &&
            (widget->objectName() == name || widget->metaObject()->className() == name)) {
            found.insert({placeOf(widget).y(), placeOf(widget).x()}, widget);
        }
    }
    QJsonArray answer;
    for (const QWidget* const widget : qAsConst(found)) {
        const auto* const edit = widget->findChild<QLineEdit*>();
        answer << QJsonArray{placeOf(widget).x(), placeOf(widget).y(), widget->width(), widget->height(),
                             edit ? edit->text() : widget->property("text").toString()};
    }
    return QJsonDocument(answer).toJson(QJsonDocument::Compact) + '\n';
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
        server->listen(serverName);
        return server;
    }
};

#include "WidgetProbe.moc"
