#pragma once

/// Allocations of this program until the one that fails; below 0 none does.
inline int allocationsLeft = -1;
