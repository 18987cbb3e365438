#pragma once

#include "platform/types.h"
#include "settings/app_settings.h"

// The fonts that lists and forms share; null until CreateAppFonts. Who shows one keeps no copy of the handle for longer
// than a call, since a change of the text size replaces all three.

inline HFONT TextFont = nullptr; ///< in the chosen text size
inline HFONT BoldTextFont = nullptr; ///< bold, in the chosen text size
inline HFONT LabelFont = nullptr; ///< bold, 10 points, for the labels of forms

/// Makes the three fonts for theSettings.TextSize, in place of those that there are.
void CreateAppFonts();
/// Deletes the fonts; a handle is cleared when its deletion succeeded.
void DeleteAppFonts();

/// Deletes what a hurried way out left, at the end of the process.
class CAppFontsEnd {
public:
    CAppFontsEnd() = default;
    CAppFontsEnd(const CAppFontsEnd&) = delete;
    CAppFontsEnd& operator=(const CAppFontsEnd&) = delete;
    ~CAppFontsEnd() { DeleteAppFonts(); }
};
/// Constructed after theSettings, and so destroyed before it.
inline const CAppFontsEnd theAppFontsEnd;
