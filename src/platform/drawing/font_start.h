#pragma once

namespace device {

/// Reads the system's list of fonts and the device's own face, which the first text would otherwise wait for. On any
/// thread, as long as no other measures or draws.
void ReadFontsAhead();

} // namespace device
