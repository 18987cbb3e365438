#pragma once

#include "platform/types.h"

// Virtual keys and modifiers.

inline constexpr WORD VK_BACK = 0x08;
inline constexpr WORD VK_TAB = 0x09;
inline constexpr WORD VK_RETURN = 0x0D;
inline constexpr WORD VK_TACTION = VK_RETURN; ///< the Action key
inline constexpr WORD VK_SHIFT = 0x10;
inline constexpr WORD VK_CONTROL = 0x11;
inline constexpr WORD VK_ESCAPE = 0x1B;
inline constexpr WORD VK_TBACK = VK_ESCAPE; ///< the Back key
inline constexpr WORD VK_PRIOR = 0x21;
inline constexpr WORD VK_NEXT = 0x22;
inline constexpr WORD VK_END = 0x23;
inline constexpr WORD VK_HOME = 0x24;
inline constexpr WORD VK_LEFT = 0x25;
inline constexpr WORD VK_UP = 0x26;
inline constexpr WORD VK_RIGHT = 0x27;
inline constexpr WORD VK_DOWN = 0x28;
inline constexpr WORD VK_DELETE = 0x2E;
inline constexpr WORD VK_F1 = 0x70;
inline constexpr WORD VK_F2 = 0x71;
inline constexpr WORD VK_TSOFT1 = VK_F1; ///< the left soft key
inline constexpr WORD VK_TSOFT2 = VK_F2; ///< the right soft key

inline constexpr unsigned MOD_CONTROL = 2;
inline constexpr unsigned MOD_SHIFT = 4;

/// Below 0 while the key is down (VK_SHIFT, VK_CONTROL alone are followed).
std::int16_t GetKeyState(int key);
