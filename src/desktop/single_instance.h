#pragma once

#include "desktop/session_bus.h"
#include "desktop/start_lock.h"

#include <QLocalServer>
#include <QObject>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace corvane {

/// One running program for each user. A later start hands its files to the first one, over a local socket or, where
/// there is none, over the session bus; a first one that has crashed is no obstacle. What a sender gave up waiting for
/// is not done later.
class SingleInstance : public QObject {
    Q_OBJECT
public:
    /// Absolute paths of files, or whole URLs of anything that is none; none for a bare activation.
    using Requests = std::function<void(const std::vector<std::string>& locations)>;

    /// `id` is the program's reverse-DNS name.
    explicit SingleInstance(std::string id);
    ~SingleInstance() override;

    enum class Claim {
        first,      ///< this process receives every request, from now on
        handedOver, ///< another one runs and has taken the locations over
        unanswered, ///< another one runs and does not answer
    };
    [[nodiscard]] Claim claim(const std::vector<std::string>& locations, Requests requests);

    /// Waits, at most a second, for the request that the bus started this process for.
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
    std::vector<std::vector<std::string>> waiting_; ///< requests that were answered and are handled soon
    bool handled_ = false;                          ///< a request
};

} // namespace corvane
