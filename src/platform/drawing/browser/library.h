#pragma once

// The functions of canvas_library.js. Texts are UTF-8; fonts are numbers that odoledgerFontMake gave; places are canvas
// pixels.
extern "C" {
int odoledgerFontMake(int isCondensed, int weight, int isItalic, double size);
/// Ascent and descent as parts of the size.
void odoledgerFontExtent(int isCondensed, int weight, int isItalic, double* ascent, double* descent);
double odoledgerTextWidth(int font, const char* text);
/// One a character, in the order of the text.
void odoledgerTextAdvances(int font, const char* text, double* advances);
/// One before each character and one at the end.
void odoledgerTextCarets(int font, const char* text, double* carets);

void odoledgerCanvasResize(int width, int height);
/// Until the odoledgerCanvasUnclip that belongs to it.
void odoledgerCanvasClip(int left, int top, int width, int height);
void odoledgerCanvasUnclip();
/// Colours are 0x00BBGGRR, alpha is 0 to 255.
void odoledgerCanvasFill(int left, int top, int width, int height, unsigned color, int alpha);
/// x and y of each point in turn.
void odoledgerCanvasPolygon(const double* points, int count, unsigned color);
/// (x, baseline) is where the run begins.
void odoledgerCanvasText(int x, int baseline, double zoom, int font, const char* text, unsigned color);
/// The bytes of a PNG, which stay where they are.
void odoledgerCanvasPicture(int left, int top, int width, int height, const unsigned char* png, int size);
}
