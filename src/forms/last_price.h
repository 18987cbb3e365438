#pragma once

// The price per unit of the last fill, kept in the registry beside the settings, as it was typed: in the volume unit of
// that moment.

/// Leaves `price` alone where none is stored.
void LoadLastPrice(float* price);
/// A failure is passed over.
void StoreLastPrice(float price);
