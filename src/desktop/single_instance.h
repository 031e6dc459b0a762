#pragma once

#include "desktop/start_lock.h"

#include <QLocalServer>
#include <QObject>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace corvane {

class ApplicationBusObject;

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

    /// True when the bus started this process to handle a request, which is on its way.
    [[nodiscard]] static bool startedByBus();
    /// Waits, at most a second, for that request.
    void awaitFirstRequest();

private:
    [[nodiscard]] QString socketName() const;
    enum class HandOver { taken, unanswered, nobody };
    [[nodiscard]] HandOver handOver(const std::vector<std::string>& locations) const;
    [[nodiscard]] HandOver handOverSocket(const std::vector<std::string>& locations) const;
    [[nodiscard]] HandOver handOverBus(const std::vector<std::string>& locations) const;
    [[nodiscard]] bool sessionHasBus() const;
    [[nodiscard]] bool claimBus();
    void listen();
    void readRequest(QLocalSocket& socket);
    void receive(const std::vector<std::string>& locations);

    std::string id_;
    std::string runtimeFolder_;
    std::unique_ptr<StartLock> lock_;
    QLocalServer server_;
    std::unique_ptr<ApplicationBusObject> busObject_;
    Requests requests_;
    bool received_ = false;
};

} // namespace corvane
