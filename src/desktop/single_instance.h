#pragma once

#include "desktop/hand_over.h"
#include "desktop/session_bus.h"
#include "desktop/start_lock.h"

#include <QLocalServer>
#include <QObject>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace corvane {

/// Ensures that each user runs only one program. A later start passes its files to the first one through a local socket
/// or, if there is none, through the session bus. A first one that has crashed is no obstacle. A request whose sender
/// gave up waiting is not carried out later.
class SingleInstance : public QObject {
    Q_OBJECT
public:
    /// The locations are absolute paths of files, or complete URLs of anything else; there are none for an activation
    /// without files.
    using Requests = std::function<void(const std::vector<std::string>& locations)>;

    /// `id` is the program's reverse-DNS name.
    explicit SingleInstance(std::string id);
    ~SingleInstance() override;

    enum class Claim {
        first,      ///< from now on, this process receives all requests
        handedOver, ///< another process is running and has taken the locations
        unanswered, ///< another process is running but does not answer
    };
    [[nodiscard]] Claim claim(const std::vector<std::string>& locations, Requests requests);

    /// Waits for at most a second for the request for which the bus started this process.
    void awaitFirstRequest();

private:
    [[nodiscard]] QString socketName() const;
    [[nodiscard]] HandOver handOver(const QStringList& uris) const;
    [[nodiscard]] HandOver handOverSocket(const QStringList& uris) const;
    void listen();
    void readRequest(QLocalSocket& socket);
    void receive(const std::vector<std::string>& locations);

    std::string id_;
    std::string runtimeFolder_;
    std::unique_ptr<StartLock> lock_;
    QLocalServer server_;
    std::unique_ptr<BusName> busName_;
    Requests requests_;
    std::vector<std::vector<std::string>> waiting_; ///< requests that were answered and will soon be handled
    bool handled_ = false;                          ///< whether a request was handled
};

} // namespace corvane
