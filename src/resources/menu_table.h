#pragma once

#include "platform/resources.h"

/// The soft-key bars of the main frame and of all dialogs.
std::span<const MenuResource> MenuTable();
/// Ctrl+Q alone.
std::span<const AcceleratorResource> AcceleratorTable();
