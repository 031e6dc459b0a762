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

constexpr int patience = 2000; // milliseconds for another process to answer

/// A session without a bus gets none: asking the library for it would start a daemon that nobody ends.
std::optional<QDBusConnection> sessionBus()
{
    const QString socket = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + "/bus";
    if (!qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") && !QFileInfo::exists(socket))
        return std::nullopt;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return std::nullopt;
    bus.interface()->setTimeout(patience);
    return bus;
}

QString objectPath(const std::string& id)
{
    return "/" + QString::fromStdString(id).replace('.', '/');
}

bool isAnswered(const QDBusConnection& bus, const QDBusMessage& call)
{
    return bus.call(call, QDBus::Block, patience).type() == QDBusMessage::ReplyMessage;
}

} // namespace

bool startedByBus()
{
    return qEnvironmentVariableIsSet("DBUS_STARTER_BUS_TYPE");
}

HandOver handOverOnBus(const std::string& id, const QStringList& uris)
{
    const QString name = QString::fromStdString(id);
    const auto bus = sessionBus();
    if (!bus || !bus->interface()->isServiceRegistered(name).value())
        return HandOver::nobody;
    QDBusMessage call = QDBusMessage::createMethodCall(
        name, objectPath(id), "org.freedesktop.Application", uris.isEmpty() ? "Activate" : "Open");
    if (!uris.isEmpty())
        call << uris;
    call << QVariantMap();
    return isAnswered(*bus, call) ? HandOver::taken : HandOver::unanswered;
}

BusName::BusName(const std::string& id, std::function<void(const QStringList&)> opened)
{
    auto bus = sessionBus();
    if (!bus)
        return;
    auto object = std::make_unique<ApplicationBusObject>();
    object->opened = std::move(opened);
    bus->registerObject(objectPath(id), object.get(), QDBusConnection::ExportAllSlots);
    object_ = std::move(object);
    held_ = bus->registerService(QString::fromStdString(id));
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
