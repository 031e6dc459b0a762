#include "desktop/single_instance.h"

#include "base/file_url.h"
#include "desktop/given_location.h"

#include <sys/socket.h>

#include <QCoreApplication>
#include <QDataStream>
#include <QElapsedTimer>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>
#include <QTimer>
#include <utility>

namespace corvane {

namespace {

QString qtText(const std::string& text)
{
    return QString::fromStdString(text);
}

/// The locations as URIs, as desktop files and requests need them.
QStringList urisOf(const std::vector<std::string>& locations)
{
    QStringList uris;
    for (const std::string& location : locations)
        uris << qtText(location.starts_with('/') ? fileURLText(location) : location);
    return uris;
}

std::vector<std::string> locationsOf(const QStringList& uris)
{
    std::vector<std::string> locations;
    for (const QString& uri : uris) {
        const std::string text = uri.toStdString();
        locations.push_back(pathOfURI(text).value_or(text));
    }
    return locations;
}

/// A sender that gave up has closed its end of the socket, which is visible after the bytes that it wrote.
bool senderHasGone(const QLocalSocket& socket)
{
    char byte = 0;
    return socket.state() != QLocalSocket::ConnectedState ||
           ::recv(static_cast<int>(socket.socketDescriptor()), &byte, 1, MSG_PEEK | MSG_DONTWAIT) == 0;
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

SingleInstance::Claim SingleInstance::claim(const std::vector<std::string>& locations, Requests requests)
{
    lock_ = std::make_unique<StartLock>(runtimeFolder_ + "/" + id_ + ".lock");
    QElapsedTimer waiting;
    waiting.start();
    // The other process takes the lock before it listens, so wait until it listens. If the holder of a lock neither
    // listens nor has the name on the bus, it is not this program. A file that cannot be locked is no reason not to
    // start.
    for (bool waitOn = true; waitOn;) {
        const StartLock::Attempt attempt = lock_->tryToHold();
        if (attempt == StartLock::Attempt::held) {
            // Somebody may have removed the lock file of a running program.
            if (handOverSocket(urisOf(locations)) == HandOver::taken)
                return Claim::handedOver;
            break;
        }
        const HandOver outcome = handOver(urisOf(locations));
        if (outcome == HandOver::taken)
            return Claim::handedOver;
        if (outcome == HandOver::unanswered)
            return Claim::unanswered; // two programs with one session would overwrite each other's work
        waitOn = attempt == StartLock::Attempt::heldByAnother && waiting.elapsed() <= answerPatience;
        if (waitOn)
            QThread::msleep(20);
    }
    requests_ = std::move(requests);
    listen(); // first, because the bus may be slow, and others must not take the lock for an abandoned one
    const auto opened = [this](const QStringList& uris) { receive(locationsOf(uris)); };
    busName_ = std::make_unique<BusName>(id_, opened);
    if (!busName_->isHeld() && handOverOnBus(id_, urisOf(locations)) == HandOver::taken) {
        server_.close();
        return Claim::handedOver;
    }
    return Claim::first;
}

/// Uses the socket or, if nobody listens or the socket's path is too long, the bus.
HandOver SingleInstance::handOver(const QStringList& uris) const
{
    const HandOver outcome = handOverSocket(uris);
    return outcome == HandOver::nobody ? handOverOnBus(id_, uris) : outcome;
}

HandOver SingleInstance::handOverSocket(const QStringList& uris) const
{
    QLocalSocket socket;
    socket.connectToServer(socketName());
    // If it is still connecting then, the other end listens, but accepts no more connections.
    if (!socket.waitForConnected(answerPatience))
        return socket.state() == QLocalSocket::ConnectingState ? HandOver::unanswered : HandOver::nobody;
    QDataStream stream(&socket);
    stream << uris;
    socket.waitForBytesWritten(answerPatience);
    if (socket.waitForReadyRead(answerPatience)) // one byte confirms that the request was taken
        return HandOver::taken;
    // If it has closed the connection, it has ended meanwhile.
    return socket.state() == QLocalSocket::ConnectedState ? HandOver::unanswered : HandOver::nobody;
}

void SingleInstance::listen()
{
    QLocalServer::removeServer(socketName()); // left behind by a crashed process
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
    constexpr qint64 longest = 1 << 26; // more than a command line can hold
    if (socket.bytesAvailable() > longest) {
        socket.abort();
        return;
    }
    QDataStream stream(&socket);
    stream.startTransaction();
    QStringList uris;
    stream >> uris;
    if (!stream.commitTransaction())
        return; // the rest has not arrived yet
    if (senderHasGone(socket))
        return; // this process was busy for longer than the sender would wait
    socket.write("1");
    socket.flush();
    receive(locationsOf(uris));
}

void SingleInstance::receive(const std::vector<std::string>& locations)
{
    // Delayed, so that all waiting senders are answered first: reading a project can take longer than they wait.
    constexpr int soon = 20; // milliseconds
    waiting_.push_back(locations);
    if (waiting_.size() == 1)
        QTimer::singleShot(soon, this, [this] {
            handled_ = true;
            for (const auto& request : std::exchange(waiting_, {}))
                requests_(request);
        });
}

void SingleInstance::awaitFirstRequest()
{
    constexpr qint64 longest = 1000; // milliseconds
    QElapsedTimer waiting;
    waiting.start();
    while (!handled_ && waiting.elapsed() < longest)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::ExcludeUserInputEvents, 20);
}

} // namespace corvane
