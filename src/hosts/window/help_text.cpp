#include "hosts/window/help_text.h"

namespace device {

const char* HelpText() {
    return "Odoledger keeps a log of your vehicles: fuel, repairs, trips, expenses, reminders.\n"
           "  F1, F2              left and right soft key, named at the bottom of the window\n"
           "  arrows, Enter, Esc  move, choose, go back\n"
           "  1 to 9              choose an item of an open menu\n"
           "  Shift+arrows, Ctrl+arrows, Shift+Enter, Ctrl+A   select several entries of a log\n"
           "  +, -, digits        in a date: step a part, type it; left and right choose the part\n"
           "  mouse               click a key's name, an item, a field or a row; double click is Enter\n"
           "  Ctrl+plus, Ctrl+minus, Ctrl+0   larger, smaller, the display's own size;  F11 full screen\n"
           "  Ctrl+Q              end the program\n"
           "The log is \"My Vehicles.dat\" in your documents folder. See also: man odoledger\n";
}

} // namespace device
