#include "resources/support_text.h"

const wchar_t SupportText[] = L"1. How it works\n"
                              L"2. Questions and answers\n"
                              L"3. What a message means\n"
                              L"Touch the three dots, then Manual. It is there without a network too.";
