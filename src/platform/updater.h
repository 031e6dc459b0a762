#pragma once

#include <functional>
#include <utility>

namespace corvane {

/// What looks for newer versions of the program. It asks and tells the user by itself once a check has begun.
class Updater {
public:
    Updater() = default;
    Updater(const Updater&) = delete;
    Updater& operator=(const Updater&) = delete;
    virtual ~Updater() = default;

    [[nodiscard]] virtual bool canCheckForUpdates() const = 0;
    virtual void checkForUpdates() = 0;
    /// Calls `notice` after each change of canCheckForUpdates.
    virtual void observe(std::function<void()> notice) = 0;
};

/// Programs of this system are updated with the system: there is nothing that can check.
class NoUpdater : public Updater {
public:
    [[nodiscard]] bool canCheckForUpdates() const override { return false; }
    void checkForUpdates() override {}
    void observe(std::function<void()>) override {}
};

/// The updater's canCheckForUpdates, kept up to date for a command that follows it.
class CorvaneUpdateState {
public:
    explicit CorvaneUpdateState(Updater& updater, std::function<void()> changed) : changed_(std::move(changed))
    {
        canCheckForUpdates = updater.canCheckForUpdates();
        updater.observe([this, &updater] {
            canCheckForUpdates = updater.canCheckForUpdates();
            changed_();
        });
    }

    bool canCheckForUpdates = false;

private:
    std::function<void()> changed_;
};

} // namespace corvane
