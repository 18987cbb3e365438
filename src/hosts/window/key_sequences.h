#pragma once

namespace device {

/// Has the X library keep what it makes of its table of key sequences (dead keys, Compose): reading it, half a megabyte
/// of text, is about half of the time that a window takes to open. It is kept in the program's private folder below
/// XDG_RUNTIME_DIR, which is gone after the session, since the library trusts what it finds there; the library keeps
/// nothing for the superuser. True where something has been kept already. To be called before the display is opened,
/// while the process has one thread: it sets a variable of the environment. Leaves all as it is where there is no such
/// folder, and where the user keeps a cache of their own, or sequences of their own: these may include files whose
/// changes the library does not notice.
bool KeepKeySequences();

} // namespace device
