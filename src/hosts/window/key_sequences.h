#pragma once

namespace device {

/// Has the X library keep what it makes of its table of key sequences (dead keys, Compose), half a megabyte of text
/// that takes it longer to read at each start than all else takes a window to open. It keeps it in the private folder
/// of the running program, which is gone after the session, since the library trusts what it finds there; it keeps
/// nothing for the superuser. True where it has already kept something. To be called before the display is opened,
/// while the process has one thread: it sets a variable of the environment. Leaves all as it is where the user keeps a
/// cache of their own, or sequences of their own: these may include files whose changes the library does not notice.
bool KeepKeySequences();

} // namespace device
