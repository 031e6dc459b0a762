#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace corvane {

/// Keeps an observer's notices coming; they end with end() or with this object, whichever is first. May outlive what
/// is observed.
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

    /// No notice comes after this, not even the rest of one that is just being given.
    void end()
    {
        if (!observation_)
            return;
        observation_->ended = true; // a notice that is just running keeps the observer alive
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

/// Those that are told when something changes, and of what: in the order in which they came. Inside a notice everything
/// is allowed: to notify, to observe (which counts from the next notice on), to end subscriptions.
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
