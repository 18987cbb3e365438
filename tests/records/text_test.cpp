#include "platform/utf8.h"
#include "records/stored_text.h"

#include <gtest/gtest.h>

TEST(Utf8, ReplacesWhatIsNoCharacter) {
    EXPECT_EQ(device::ToUtf8(std::wstring{L'a', static_cast<wchar_t>(0xD800), static_cast<wchar_t>(0x110000), L'b'}),
        "a\xEF\xBF\xBD\xEF\xBF\xBD"
        "b");

    const struct {
        std::string_view bytes;
        std::wstring_view text;
    } cases[] = {{"\xC3z", L"\uFFFDz"}, // cut off
        {"\xC0\xAF", L"\uFFFD\uFFFD"}, // longer than need be
        {"\xED\xA0\x80", L"\uFFFD\uFFFD\uFFFD"}, // a surrogate
        {"\xF4\x90\x80\x80", L"\uFFFD\uFFFD\uFFFD\uFFFD"}, // beyond Unicode
        {"\xE2\x82", L"\uFFFD\uFFFD"}}; // ends too early
    for (const auto& [bytes, text] : cases)
        EXPECT_EQ(device::FromUtf8(bytes), text);
}

TEST(StoredText, TellsAChange) {
    CStoredText text;
    EXPECT_FALSE(text.Set(nullptr) || text.Set(L""));
    EXPECT_TRUE(text.Set(L"abcd"));
    EXPECT_FALSE(text.Set(text.Get()));
    EXPECT_TRUE(text.Set(text.Get() + 2)); // its own tail
    EXPECT_STREQ(text.Get(), L"cd");
    EXPECT_TRUE(text.Set(nullptr) && !*text.Get());
}
