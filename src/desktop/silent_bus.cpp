#include "desktop/silent_bus.h"

#include "desktop/hand_over.h"

#include <dbus/dbus.h>

#include <chrono>
#include <cstdlib>
#include <future>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

namespace corvane {

namespace {

constexpr std::chrono::milliseconds probePatience(answerPatience);
constexpr const char* addressVariable = "DBUS_SESSION_BUS_ADDRESS";

/// The address at which the library would look for the bus; empty if the session has none, in which case it would start
/// one.
std::string busAddress()
{
    const char* address = std::getenv(addressVariable);
    if (address != nullptr && *address != '\0')
        return std::string_view(address).starts_with("autolaunch:") ? "" : address;
    const char* folder = std::getenv("XDG_RUNTIME_DIR");
    return folder == nullptr ? "" : "unix:path=" + std::string(folder) + "/bus";
}

/// False if the time runs out; a refusal is an answer too.
bool answers(DBusConnection& connection, const char* method)
{
    DBusMessage* call = dbus_message_new_method_call(DBUS_SERVICE_DBUS, DBUS_PATH_DBUS, DBUS_INTERFACE_DBUS, method);
    DBusError error = DBUS_ERROR_INIT;
    DBusMessage* reply =
        dbus_connection_send_with_reply_and_block(&connection, call, static_cast<int>(probePatience.count()), &error);
    const bool answered = reply != nullptr || dbus_error_has_name(&error, DBUS_ERROR_NO_REPLY) == FALSE;
    dbus_error_free(&error);
    if (reply != nullptr)
        dbus_message_unref(reply);
    dbus_message_unref(call);
    return answered;
}

/// A bus that cannot be reached makes nobody wait. Only one that accepts the connection and does not answer is silent.
bool isSilent(const std::string& address)
{
    DBusConnection* connection = dbus_connection_open_private(address.c_str(), nullptr);
    if (connection == nullptr)
        return false;
    dbus_connection_set_exit_on_disconnect(connection, FALSE);
    const bool silent = !answers(*connection, "Hello") || !answers(*connection, "GetId");
    dbus_connection_close(connection);
    dbus_connection_unref(connection);
    return silent;
}

} // namespace

void avoidSilentSessionBus()
{
    const std::string address = busAddress();
    if (address.empty())
        return;
    // Runs on a separate thread, which is abandoned if necessary, because connecting may also wait forever.
    std::packaged_task<bool()> question([address] { return isSilent(address); });
    std::future<bool> silent = question.get_future();
    try {
        std::thread(std::move(question)).detach();
    } catch (const std::system_error&) {
        return; // then the toolkit finds that out itself
    }
    if (silent.wait_for(probePatience) != std::future_status::ready || silent.get())
        ::setenv(addressVariable, "disabled:", 1);
}

} // namespace corvane
