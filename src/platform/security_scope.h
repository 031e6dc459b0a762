#pragma once

#include <string>
#include <utility>

namespace corvane {

/// Access to files that the user chose outside the program's own folders, for programs in a sandbox. This system has no
/// sandbox, so no access needs to be granted.
class SecurityScope {
public:
    SecurityScope() = default;
    SecurityScope(const SecurityScope&) = delete;
    SecurityScope& operator=(const SecurityScope&) = delete;
    virtual ~SecurityScope() = default;

    /// True if access was granted; then stop() must end it.
    [[nodiscard]] virtual bool start(const std::string& /*location*/) { return false; }
    virtual void stop(const std::string& /*location*/) {}

    /// The implementation for this system.
    [[nodiscard]] static SecurityScope& system()
    {
        static SecurityScope scope;
        return scope;
    }
};

/// Access to one location until the end of the scope; stopped only if it was granted.
class SecurityScopedAccess {
public:
    SecurityScopedAccess(SecurityScope& scope, std::string location)
        : scope_(scope), location_(std::move(location)), granted_(scope_.start(location_))
    {
    }
    SecurityScopedAccess(const SecurityScopedAccess&) = delete;
    SecurityScopedAccess& operator=(const SecurityScopedAccess&) = delete;
    ~SecurityScopedAccess()
    {
        if (granted_)
            scope_.stop(location_);
    }

private:
    SecurityScope& scope_;
    std::string location_;
    bool granted_;
};

} // namespace corvane
