#include "resources/support_text.h"

const wchar_t SupportText[] = L"1. How it works: MANUAL.md\n"
                              L"2. Questions and answers: QUESTIONS.md\n"
                              L"3. What a message means: MESSAGES.md\n"
                              L"All in /usr/share/doc/odoledger/docs";
