#include "desktop/session_bus.h"

#include "desktop/application_bus_object.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUrl>
#include <optional>
#include <utility>

namespace corvane {

namespace {

/// If a session has no bus, the library must not be asked for one, because it would start a daemon that nobody ends.
bool sessionHasBus()
{
    const QString socket = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + "/bus";
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") || QFileInfo::exists(socket);
}

std::optional<QDBusConnection> sessionBus()
{
    if (!sessionHasBus())
        return std::nullopt;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return std::nullopt;
    bus.interface()->setTimeout(answerPatience);
    return bus;
}

QString objectPath(QString name)
{
    return "/" + name.replace('.', '/');
}

bool isAnswered(const QDBusConnection& bus, const QDBusMessage& call)
{
    return bus.call(call, QDBus::Block, answerPatience).type() == QDBusMessage::ReplyMessage;
}

HandOver ask(const QDBusConnection& bus, const QString& name, const QStringList& uris)
{
    if (!bus.isConnected())
        return HandOver::nobody;
    bus.interface()->setTimeout(answerPatience);
    if (!bus.interface()->isServiceRegistered(name).value())
        return HandOver::nobody;
    QDBusMessage call = QDBusMessage::createMethodCall(
        name, objectPath(name), "org.freedesktop.Application", uris.isEmpty() ? "Activate" : "Open");
    if (!uris.isEmpty())
        call << uris;
    call << QVariantMap();
    return isAnswered(bus, call) ? HandOver::taken : HandOver::unanswered;
}

} // namespace

bool startedByBus()
{
    return qEnvironmentVariableIsSet("DBUS_STARTER_BUS_TYPE");
}

HandOver handOverOnBus(const std::string& id, const QStringList& uris)
{
    if (!sessionHasBus())
        return HandOver::nobody;
    const QString connection = "hand-over";
    const HandOver outcome =
        ask(QDBusConnection::connectToBus(QDBusConnection::SessionBus, connection), QString::fromStdString(id), uris);
    QDBusConnection::disconnectFromBus(connection); // so that a late answer finds nobody waiting
    return outcome;
}

BusName::BusName(const std::string& id, std::function<void(const QStringList&)> opened)
{
    auto bus = sessionBus();
    if (!bus)
        return;
    auto object = std::make_unique<ApplicationBusObject>();
    object->opened = std::move(opened);
    const QString name = QString::fromStdString(id);
    bus->registerObject(objectPath(name), object.get(), QDBusConnection::ExportAllSlots);
    object_ = std::move(object);
    held_ = bus->registerService(name);
}

BusName::~BusName() = default;

bool showInFileManagerOnBus(const QString& path)
{
    const auto bus = sessionBus();
    if (!bus)
        return false;
    QDBusMessage show = QDBusMessage::createMethodCall(
        "org.freedesktop.FileManager1", "/org/freedesktop/FileManager1", "org.freedesktop.FileManager1", "ShowItems");
    show << QStringList(QUrl::fromLocalFile(path).toString()) << QString();
    return isAnswered(*bus, show);
}

} // namespace corvane
