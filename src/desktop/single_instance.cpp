#include "desktop/single_instance.h"

#include "desktop/application_bus_object.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDataStream>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>
#include <QUrl>
#include <utility>

namespace corvane {

namespace {

constexpr int patience = 2000; // milliseconds for another process to answer

QString qtText(const std::string& text)
{
    return QString::fromStdString(text);
}

/// As desktop files and requests write locations.
QStringList urisOf(const std::vector<std::string>& locations)
{
    QStringList uris;
    for (const std::string& location : locations)
        uris
            << (location.starts_with('/')
                    ? QUrl::fromLocalFile(QFile::decodeName(location.c_str())).toString(QUrl::FullyEncoded)
                    : qtText(location));
    return uris;
}

std::vector<std::string> locationsOf(const QStringList& uris)
{
    std::vector<std::string> locations;
    for (const QString& uri : uris) {
        const QUrl url(uri);
        locations.push_back(url.isLocalFile() ? QFile::encodeName(url.toLocalFile()).toStdString() : uri.toStdString());
    }
    return locations;
}

QString objectPath(const std::string& id)
{
    return "/" + qtText(id).replace('.', '/');
}

} // namespace

SingleInstance::SingleInstance(std::string id)
    : id_(std::move(id)),
      runtimeFolder_(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation).toStdString())
{
}

SingleInstance::~SingleInstance() = default;

QString SingleInstance::socketName() const
{
    return qtText(runtimeFolder_ + "/" + id_ + ".socket");
}

bool SingleInstance::startedByBus()
{
    return qEnvironmentVariableIsSet("DBUS_STARTER_BUS_TYPE");
}

SingleInstance::Claim SingleInstance::claim(const std::vector<std::string>& locations, Requests requests)
{
    lock_ = std::make_unique<QLockFile>(qtText(runtimeFolder_ + "/" + id_ + ".lock"));
    lock_->setStaleLockTime(0); // a lock is as old as its process, which may run for days
    QElapsedTimer waiting;
    waiting.start();
    // The other process holds the lock before it listens: wait until it does. What cannot be locked at all, such as a
    // folder that takes no files, is no reason not to start.
    while (!lock_->tryLock() && lock_->error() == QLockFile::LockFailedError) {
        if (handOverSocket(locations))
            return Claim::handedOver;
        if (waiting.elapsed() > patience)
            return Claim::unanswered; // two programs on one session would overwrite each other's work
        QThread::msleep(20);
    }
    requests_ = std::move(requests);
    if (!claimBus() && handOverBus(locations))
        return Claim::handedOver;
    listen();
    return Claim::first;
}

bool SingleInstance::handOverSocket(const std::vector<std::string>& locations) const
{
    QLocalSocket socket;
    socket.connectToServer(socketName());
    if (!socket.waitForConnected(patience))
        return false;
    QDataStream stream(&socket);
    stream << urisOf(locations);
    socket.waitForBytesWritten(patience);
    return socket.waitForReadyRead(patience); // one byte says that the request was taken
}

bool SingleInstance::handOverBus(const std::vector<std::string>& locations) const
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        qtText(id_), objectPath(id_), "org.freedesktop.Application", locations.empty() ? "Activate" : "Open");
    if (!locations.empty())
        call << urisOf(locations);
    call << QVariantMap();
    return QDBusConnection::sessionBus().call(call, QDBus::Block, patience).type() == QDBusMessage::ReplyMessage;
}

/// A session without a bus gets none: asking the library for it would start a daemon that nobody ends.
bool SingleInstance::sessionHasBus() const
{
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") || QFileInfo::exists(qtText(runtimeFolder_ + "/bus"));
}

/// True also where there is no bus: then nobody else can have the name.
bool SingleInstance::claimBus()
{
    if (!sessionHasBus())
        return true;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return true;
    busObject_ = std::make_unique<ApplicationBusObject>();
    busObject_->opened = [this](const QStringList& uris) { receive(locationsOf(uris)); };
    bus.registerObject(objectPath(id_), busObject_.get(), QDBusConnection::ExportAllSlots);
    return bus.registerService(qtText(id_));
}

void SingleInstance::listen()
{
    QLocalServer::removeServer(socketName()); // what a crashed process left
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server_, &QLocalServer::newConnection, this, [this] {
        QLocalSocket* socket = server_.nextPendingConnection();
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { readRequest(*socket); });
    });
    server_.listen(socketName());
}

void SingleInstance::readRequest(QLocalSocket& socket)
{
    constexpr qint64 longest = 1 << 20;
    if (socket.bytesAvailable() > longest) {
        socket.abort();
        return;
    }
    QDataStream stream(&socket);
    stream.startTransaction();
    QStringList uris;
    stream >> uris;
    if (!stream.commitTransaction())
        return; // the rest is on its way
    socket.write("1");
    socket.flush();
    receive(locationsOf(uris));
}

void SingleInstance::receive(const std::vector<std::string>& locations)
{
    // Later, so that the answer goes first: reading a project can take longer than who asks has patience.
    const auto handle = [this, locations] {
        received_ = true;
        requests_(locations);
    };
    QMetaObject::invokeMethod(this, handle, Qt::QueuedConnection);
}

void SingleInstance::awaitFirstRequest()
{
    constexpr qint64 longest = 1000; // milliseconds
    QElapsedTimer waiting;
    waiting.start();
    while (!received_ && waiting.elapsed() < longest)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::ExcludeUserInputEvents, 20);
}

} // namespace corvane
