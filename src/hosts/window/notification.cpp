#include "hosts/window/notification.h"

#include "hosts/window/display.h"
#include "platform/system/environment.h"

#include <csignal>
#include <spawn.h>
#include <unistd.h>

extern char** environ;

namespace device {

void SendNotification(const std::string& line) {
    const std::string bus = TheEnvironment().runtimeFolder + "/bus";
    if (!IsSet("DBUS_SESSION_BUS_ADDRESS") && access(bus.c_str(), F_OK) != 0)
        return;
    std::string words[] = {"notify-send", "--app-name=Odoledger", "--icon=odoledger", "--", "Odoledger", line};
    char* arguments[std::size(words) + 1] = {};
    for (std::size_t i = 0; i < std::size(words); ++i)
        arguments[i] = words[i].data();
    // It tells nobody how it went, and needs nobody who asks. The signals that the window has taken over are its own
    // again.
    std::signal(SIGCHLD, SIG_IGN);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);
    pid_t process = 0;
    posix_spawnp(&process, arguments[0], nullptr, &attributes, arguments, environ);
    posix_spawnattr_destroy(&attributes);
}

} // namespace device
