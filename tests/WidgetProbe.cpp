#include <QApplication>
#include <QGenericPlugin>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLineEdit>
#include <QLocalServer>
#include <QLocalSocket>

#include <algorithm>
#include <tuple>

namespace {

// Every visible widget of an object or class name from the top: [[x, y, width, height, text], ...].
QByteArray answerTo(const QString& name)
{
    QWidgetList found = QApplication::allWidgets();
    found.erase(std::remove_if(found.begin(), found.end(),
                               [&](const QWidget* widget) {
                                   return !widget->isVisible() || (widget->objectName() != name &&
                                                                   widget->metaObject()->className() != name);
                               }),
                found.end());
    const auto placeOf = [](const QWidget* widget) { return widget->mapToGlobal(QPoint()); };
    std::stable_sort(found.begin(), found.end(), [&](const QWidget* first, const QWidget* second) {
        return std::make_tuple(placeOf(first).y(), placeOf(first).x()) <
               std::make_tuple(placeOf(second).y(), placeOf(second).x());
    });
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
