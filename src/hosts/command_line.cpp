#include "hosts/command_line.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <sysexits.h>

namespace device {

void ObeyCommandLine(int count, char** arguments, const char* help, const VersionResource& version) {
    if (count < 2)
        return;
    const std::string_view asked = arguments[1];
    int result = EX_OK;
    if (count == 2 && (asked == "--help" || asked == "-h")) {
        std::fputs(help, stdout);
    } else if (count == 2 && asked == "--version") {
        std::printf("Odoledger %d.%d.%d.%d\n", version.major, version.minor, version.third, version.build);
    } else {
        std::fprintf(stderr, "%s: \"%s\" is not understood; --help tells what is\n", program_invocation_short_name,
            arguments[count == 2 ? 1 : 2]);
        result = EX_USAGE;
    }
    std::fflush(stdout);
    std::_Exit(result); // nothing of the program has begun, so nothing of its end runs
}

const char* const OdoledgerHelp = R"(Odoledger keeps a log of your vehicles: fuel, repairs, trips, expenses, reminders.

  odoledger             in a window, or without a display in the terminal
  odoledger --help      this page
  odoledger --version   the version

Keys
  F1, F2                left and right soft key, named at the bottom
  arrows, Enter, Esc    move, choose, go back (in a text Esc deletes a character)
  1 to 9                choose an item of an open menu
  Shift+arrows, Ctrl+arrows, Shift+Enter, Ctrl+A
                        select several entries of a log
  +, -, digits          in a date: step a part, type it; left and right choose the part
  Ctrl+Q                end the program

In a window
  mouse                 click a soft key, an item, a field or a row; double click is Enter;
                        right click, the Menu key or Shift+F10 open the menu
  Ctrl+X, Ctrl+C, Ctrl+V, Ctrl+A
                        cut, copy, paste, select all in a text; the middle button pastes too
  Ctrl+plus, Ctrl+minus fix a larger or smaller zoom; Ctrl+0 lets it follow the window
  F11                   full screen

In a terminal
  Alt+1, Alt+2          the soft keys where the terminal keeps F1 and F2; [ and ] too, outside texts
  mouse                 as in a window; with Shift the terminal's own
  Ctrl+C, Ctrl+Z        end the program; suspend it

Variables
  HANDSET_HOST          window or terminal instead of what is there
  HANDSET_STORAGE       a folder that holds log, settings and copies
  HANDSET_SCREEN        the screen in device pixels, 320x480
  HANDSET_DPI           pixels per logical inch, 96
  HANDSET_ZOOM          window pixels per device pixel
  HANDSET_LOCALE        numbers, money and dates, as en_US
  HANDSET_MOUSE         0: the terminal keeps its mouse

Files
  My Vehicles.dat in your documents folder           the log
  ~/.config/odoledger/registry, registry.window      the settings; size and zoom of the window
  ~/.local/state/odoledger/copies/                   daily copies of the log

See also: man odoledger
)";

const char* const ConsoleHelp = R"(odoledger-console: the vehicle log on a device that a script holds.

  odoledger-console             reads commands, one a line, and answers each; a line "." ends an answer
  odoledger-console --help      this page
  odoledger-console --version   the version

  printf 'boot\nkey action\nscreen\n' | HANDSET_STORAGE=/tmp/device odoledger-console

The commands: man odoledger-console
)";

} // namespace device
