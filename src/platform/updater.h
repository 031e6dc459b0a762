#pragma once

#include "base/observers.h"

#include <functional>
#include <utility>

namespace corvane {

/// Checks for newer versions of the program. Once started, a check talks to the user by itself.
class Updater {
public:
    Updater() = default;
    Updater(const Updater&) = delete;
    Updater& operator=(const Updater&) = delete;
    virtual ~Updater() = default;

    [[nodiscard]] virtual bool canCheckForUpdates() const = 0;
    virtual void checkForUpdates() = 0;
    /// Calls `notice` after each change of canCheckForUpdates.
    [[nodiscard]] virtual Subscription observe(Observers<>::Notice notice) = 0;
};

/// On this system, programs are updated with the system, so this updater never checks.
class NoUpdater : public Updater {
public:
    [[nodiscard]] bool canCheckForUpdates() const override { return false; }
    void checkForUpdates() override {}
    [[nodiscard]] Subscription observe(Observers<>::Notice) override { return {}; }
};

/// Follows the updater's canCheckForUpdates, so that a command can be enabled and disabled with it.
class CorvaneUpdateState {
public:
    explicit CorvaneUpdateState(Updater& updater, std::function<void()> changed) : changed_(std::move(changed))
    {
        canCheckForUpdates = updater.canCheckForUpdates();
        subscription_ = updater.observe([this, &updater] {
            canCheckForUpdates = updater.canCheckForUpdates();
            changed_();
        });
    }

    bool canCheckForUpdates = false;

private:
    std::function<void()> changed_;
    Subscription subscription_;
};

} // namespace corvane
