// save_twice FOLDER: saves a session into the folder, and then once more over it; saving_order.sh watches the calls.
#include "session/session_encoding.h"
#include "session/session_store.h"

#include <exception>
#include <iostream>

int main(int count, char** arguments)
{
    using namespace corvane;
    if (count != 2)
        return 2;
    try {
        SessionStore store([folder = std::string(arguments[1])] { return folder; });
        SessionEncoder encoder;
        encoder.setSource("<fcpxml/>");
        EditSettings settings;
        EditHistory history;
        history.append(std::make_shared<const EditRevision>());
        store.write(encoder.encode(settings, history));
        settings.mainShare = 50;
        store.write(encoder.encode(settings, history));
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
    return 0;
}
