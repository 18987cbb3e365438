#include "records/stored_text.h"

#include <gtest/gtest.h>

TEST(StoredText, TellsAChange) {
    CStoredText text;
    EXPECT_FALSE(text.Set(nullptr) || text.Set(L""));
    EXPECT_TRUE(text.Set(L"abcd"));
    EXPECT_FALSE(text.Set(text.Get()));
    EXPECT_TRUE(text.Set(text.Get() + 2)); // its own tail
    EXPECT_STREQ(text.Get(), L"cd");
    EXPECT_TRUE(text.Set(nullptr) && !*text.Get());
}
