#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace corvane {

/// An observer's subscription. Notices stop after end() or when this object is destroyed. May outlive what is observed.
class Subscription {
public:
    Subscription() = default;
    Subscription(Subscription&&) noexcept = default;
    Subscription& operator=(Subscription&& other) noexcept
    {
        if (this != &other) {
            end();
            observation_ = std::move(other.observation_);
        }
        return *this;
    }
    ~Subscription() { end(); }

    /// No notice reaches the observer after this, not even one that is already being delivered.
    void end()
    {
        if (!observation_)
            return;
        observation_->ended = true; // a running notice keeps the observer alive
        observation_.reset();
    }

private:
    template <class... Facts>
    friend class Observers;
    struct Observation {
        bool ended = false;
    };
    explicit Subscription(std::shared_ptr<Observation> observation) : observation_(std::move(observation)) {}

    std::shared_ptr<Observation> observation_;
};

/// Notifies observers of changes, in the order in which they subscribed. A notice may notify, observe (which takes
/// effect from the next notice on) and end subscriptions.
template <class... Facts>
class Observers {
public:
    using Notice = std::function<void(const Facts&...)>;

    /// `notice` must not be empty.
    [[nodiscard]] Subscription observe(Notice notice)
    {
        std::erase_if(observers_, [](const auto& observer) { return observer.expired(); });
        auto observer = std::make_shared<Observer>();
        observer->notice = std::move(notice);
        observers_.push_back(observer);
        return Subscription(std::move(observer));
    }

    void notify(const Facts&... facts) const
    {
        const auto observers = observers_; // notices may change the list
        for (const auto& weak : observers) {
            const auto observer = weak.lock();
            if (observer && !observer->ended)
                observer->notice(facts...);
        }
    }

private:
    struct Observer : Subscription::Observation {
        Notice notice;
    };

    std::vector<std::weak_ptr<Observer>> observers_;
};

} // namespace corvane
