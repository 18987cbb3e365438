#pragma once

namespace device {

/// Reads the system's list of fonts and the device's own face in its usual sizes, which the first texts would otherwise
/// wait for. `dpi`: device pixels an inch. On any thread, as long as no other measures or draws.
void ReadFontsAhead(int dpi);

} // namespace device
