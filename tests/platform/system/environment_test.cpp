#include "device_fixture.h"
#include "platform/system/locale_name.h"

namespace {

using device::ParseEnvironment;

TEST(EnvironmentText, AMalformedVariableIsOneLineThatNamesIt) {
    const std::pair<const char*, const char*> cases[]
        = {{"HANDSET_SCREEN", "320"}, {"HANDSET_SCREEN", "0x480"}, {"HANDSET_SCREEN", "320x-1"},
            {"HANDSET_SCREEN", "320x480 "}, {"HANDSET_SCREEN", "16385x1"}, {"HANDSET_SCREEN", "99999999999x1"},
            {"HANDSET_DPI", "0"}, {"HANDSET_DPI", "96.5"}, {"HANDSET_DPI", "961"}, {"HANDSET_ZOOM", "nan"},
            {"HANDSET_ZOOM", "0.2"}, {"HANDSET_ZOOM", "2x"}, {"HANDSET_MOUSE", "no"}, {"HANDSET_LOCALE", "english"},
            {"HANDSET_CLOCK", "2026-02-29T10:00:00Z"}, {"HANDSET_CLOCK", "2026-03-01T10:00:00"},
            {"HANDSET_CLOCK", "2026-03-01T24:00:00Z"}, {"HANDSET_CLOCK", "1600-03-01T10:00:00Z"},
            {"HANDSET_SYNC", "yes"}, {"HANDSET_STORAGE", "/dev/null"}, {"TZ", "Europe/Nowhere"}, {"TZ", "two\nlines"}};
    for (const auto& [name, value] : cases) {
        const auto error = ParseEnvironment({{"HOME", "/home/ann"}, {name, value}}).error;
        ASSERT_TRUE(error) << name << '=' << value;
        EXPECT_EQ(error->rfind(std::string{name} + ": ", 0), 0U) << *error;
        EXPECT_EQ(error->find('\n'), std::string::npos);
    }
}

TEST(EnvironmentText, IsReadWithItsBoundsAndDefaults) {
    const auto plain = ParseEnvironment({{"HOME", "/home/ann"}, {"HANDSET_DPI", ""}, {"LC_ALL", "?!"}});
    EXPECT_EQ(plain.error, std::nullopt);
    EXPECT_EQ(plain.environment.numberLocale, "en_US");
    EXPECT_EQ(plain.environment.registryFile, "/home/ann/.config/odoledger/registry");
    EXPECT_EQ(plain.environment.documentsFolder, "/home/ann/Documents");

    const auto full = ParseEnvironment({{"HANDSET_SCREEN", "1x16384"}, {"HANDSET_DPI", "960"}, {"HANDSET_ZOOM", "0.25"},
        {"HANDSET_MOUSE", "0"}, {"HANDSET_SYNC", "1"}, {"HANDSET_STORAGE", "/tmp/a/../b/"}, {"TZ", ":Europe/Berlin"},
        {"HANDSET_CLOCK", "2026-03-01T10:00:00.617Z"}, {"LC_ALL", ""}, {"LC_TIME", "sv_SE"},
        {"LANG", "de_DE.UTF-8@euro"}});
    EXPECT_EQ(full.error, std::nullopt);
    EXPECT_EQ(full.environment.documentsFolder, "/tmp/b/My Documents");
    EXPECT_EQ(device::CalendarTime(full.environment.clock.value()).wMilliseconds, 617);
    EXPECT_TRUE(plain.environment.mouse && !full.environment.mouse);
    EXPECT_EQ(full.environment.numberLocale, "de_DE");
    EXPECT_EQ(full.environment.dateLocale, "sv_SE");
}

TEST_F(DeviceTest, TheDesktopsOwnListNamesTheDocumentsFolder) {
    const std::pair<const char*, const char*> cases[] = {
        {"# c\nXDG_DOCUMENTS_DIR=\"$HOME/Écrits\"\nXDG_MUSIC_DIR=\"$HOME/Musik\"\n", "/home/ann/Écrits"},
        {"XDG_DOCUMENTS_DIR=\"relative\"\nXDG_DOCUMENTS_DIR=\n\xFF\xFE", "/home/ann/Documents"},
    };
    for (const auto& [list, folder] : cases) {
        Write(folder_ / "user-dirs.dirs", list);
        EXPECT_EQ(ParseEnvironment({{"HOME", "/home/ann"}, {"XDG_CONFIG_HOME", folder_}}).environment.documentsFolder,
            folder);
    }
}

TEST(LocaleNames, AreTakenInTheirManySpellings) {
    const std::pair<const char*, const char*> good[] = {{"en_US", "en_US"}, {"C", "en_US"}, {"POSIX", "en_US"},
        {"C.UTF-8", "en_US"}, {"en-gb", "en_GB"}, {"de_DE.UTF-8@euro", "de_DE"}, {"de", "de"},
        {"sr_RS@latin", "sr_Latn_RS"}, {"zh-hant-tw", "zh_Hant_TW"}, {"es_419", "es_419"}, {"en_US_POSIX", "en_US"},
        {"ar_EG@numbers=latn", "ar_EG@numbers=latn"}, {"kok_IN", "kok_IN"}};
    for (const auto& [name, expected] : good)
        EXPECT_EQ(device::LocaleName(name), expected) << name;
    for (const char* wrong : {"", "!!", "x", "english", "en_", "en_U", "en US", "en_US@", "en_US.", "en_US@a=;b=c",
             "en_US@a=b;", "_US", "en_US_DE", "\xC3\xA9n_US"}) {
        EXPECT_EQ(device::LocaleName(wrong), std::nullopt) << wrong;
    }
}

} // namespace
