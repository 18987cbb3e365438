#include "tally_device.h"

#include <random>

namespace {

constexpr const char* Roadster
    = "INSERT INTO vehicles VALUES (1, 1001, 'Roadster', '', '', '', 1550, 2007, '', '', '', '', 1, '', '', '');"
      "INSERT INTO entries VALUES (1, 1002, 1001, 39000, 1, 1000, 30, 10, 3, '', '', 'North'),"
      "(2, 1003, 1001, 39005, 2, 1100, 120, 0, 0, 'Oil', '=1+1', 'Gar' || char(27) || 'age');"
      "UPDATE sequence SET next_ref = 1100;";

using Commands = TallyDevice;

TEST_F(Commands, EndWithAStatusThatScriptsCanGoBy) {
    Sql(Roadster);
    const std::string other = folder_ / "other.dat";
    Write(other, "no log");
    const std::pair<std::vector<std::string>, int> cases[] = {{{"list"}, 0}, {{"--help"}, 0}, {{"due", "--help"}, 0},
        {{}, EX_USAGE}, {{"lists"}, EX_USAGE}, {{"list", "--from", "2026-02-30"}, EX_USAGE},
        {{"stats", "--by", "week"}, EX_USAGE}, {{"list", "--vehicle", "Nobody"}, EX_USAGE},
        {{"stats", "--vehicle", "Roadster (2007)"}, 0}, {{"list", "--file", "/nowhere"}, EX_NOINPUT},
        {{"--file", "/nowhere", "check"}, EX_NOINPUT}, {{"list", "--file", other}, EX_DATAERR},
        {{"check", "--file", other}, EX_DATAERR}, {{"list", "-o", other + "/list"}, EX_CANTCREAT},
        {{"backup", HostPath()}, EX_CANTCREAT}, {{"backup", other}, EX_CANTCREAT}};
    for (const auto& [arguments, status] : cases) {
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.status, status) << testing::PrintToString(arguments);
        EXPECT_EQ(outcome.err.empty(), status == 0 || arguments == cases[12].first) << outcome.err;
    }
    EXPECT_EQ(Read(other), "no log");
    Sql("INSERT INTO vehicles SELECT 2, 1050, name, '', '', '', 0, 2008, '', '', '', '', 1, '', '', '' FROM vehicles");
    EXPECT_EQ(Run({"stats"}).status, EX_USAGE) << "which of the two?";
    EXPECT_EQ(Run({"stats", "--vehicle", "Roadster"}).status, EX_USAGE);
    LogFile holder(HostPath());
    holder.Run("BEGIN EXCLUSIVE");
    EXPECT_EQ(Run({"list"}).status, EX_TEMPFAIL);
}

TEST_F(Commands, ListsForPeopleSpreadsheetsAndPrograms) {
    Sql(Roadster);
    EXPECT_EQ(Run({"list"}).out,
        "      Date  Kind    Odometer  Entry                       Amount\n"
        "10/10/2006  fuel       1,000  10.00 gal @ $3.00 (North)   $30.00\n"
        "10/15/2006  repair     1,100  Oil (Gar age)              $120.00\n");
    EXPECT_EQ(Run({"list", "--from", "2006-10-15", "--to", "2006-10-15", "--format", "csv"}).out,
        "vehicle,date,kind,odometer,total,volume,price,start,name,vendor,notes\n"
        "Roadster,2006-10-15,repair,1100,120.0,,,,Oil,Gar\x1B"
        "age,'=1+1\n");
    EXPECT_NE(Run({"list", "--format", "json"}).out.find("\"vendor\": \"Gar\\u001bage\""), std::string::npos);
}

TEST_F(Commands, CheckTellsWhatOpeningWouldMendAndChangesNothing) {
    const std::pair<const char*, const char*> cases[] = {{"", ": sound"},
        {"CREATE TRIGGER t AFTER INSERT ON entries BEGIN DELETE FROM entries; END", "trigger t is not ours"},
        {"DROP INDEX entries_in_order", "index entries_in_order is missing"},
        {"CREATE TABLE other (a, b AS (a + 1))", "not those of a log"},
        {"UPDATE sequence SET next_ref = 1001", "gives them out anew"},
        {"UPDATE entries SET vehicle = 5; UPDATE entries SET type = 9 WHERE id = 1", "2 entries belong to no vehicle"},
        {"UPDATE entries SET amount = 1e300 WHERE id = 1", "1 entries have a number that is too large"},
        {"CREATE TABLE tally_batches (x)", "tables of imports are not ours"},
        {"UPDATE entries SET date = 2958466 WHERE id = 2", "1 entries have a date that cannot be shown"}};
    for (const auto& [sql, words] : cases) {
        Empty();
        Sql(std::string(Roadster) + sql);
        const std::string before = Read(HostPath());
        const Outcome outcome = Run({"check"});
        EXPECT_NE(outcome.out.find(words), std::string::npos) << words << " not in " << outcome.out;
        EXPECT_EQ(outcome.status, *sql == '\0' ? EX_OK : EX_DATAERR) << words;
        EXPECT_EQ(Read(HostPath()), before);
    }
    std::string damaged = Read(HostPath());
    damaged.replace(4096, 4096, 4096, '\x5A');
    Write(HostPath(), damaged);
    EXPECT_NE(Run({"check"}).out.find("damaged"), std::string::npos);
    Write(HostPath() + "-journal", "no journal");
    EXPECT_NE(Run({"check"}).out.find("-journal lies beside"), std::string::npos);
    EXPECT_EQ(Read(HostPath() + "-journal"), "no journal");
}

TEST_F(Commands, BackupIsTheLogAndTakesAnOlderOnesPlaceOnly) {
    Sql(Roadster);
    const std::string copy = folder_ / "copy.dat";
    ASSERT_EQ(Run({"backup", copy}).status, 0);
    EXPECT_EQ(Read(copy), Read(HostPath()));
    Sql("UPDATE entries SET notes = 'later'");
    ASSERT_EQ(Run({"backup", copy}).status, 0);
    EXPECT_EQ(Read(copy), Read(HostPath()));
    const int status = WithoutRoom(4096, [&] { return Run({"backup", copy}).status; });
    EXPECT_EQ(status, EX_IOERR);
    EXPECT_EQ(Read(copy), Read(HostPath())) << "a copy that fails leaves the older one";
}

TEST_F(Commands, DueIsQuietUntilSomethingIs) {
    Sql(std::string(Roadster) + "UPDATE entries SET date = date + 7000");
    EXPECT_EQ(Run({"due"}).status + Run({"due"}).out.size(), 0U);
    // The clock stands at 2026-03-15T10:00:00.250Z, day 46096.
    Sql("INSERT INTO reminders VALUES (1, 1010, 1001, 2958465, 2050, 'Near', ''), (2, 1011, 1001, 46126.4, 2e9, 'Far', "
        "'')");
    EXPECT_EQ(Run({"due", "--within-distance", "499", "--within", "29d"}).status, 0);
    const Outcome soon = Run({"due"});
    EXPECT_EQ(soon.status, 1);
    EXPECT_EQ(soon.out,
        "State  Vehicle          Reminder       Due at  Now at     Due on  Likely (an estimate)\n"
        "soon   Roadster (2007)  Near            2,050   1,550    no date  any day now\n"
        "soon   Roadster (2007)  Far       no odometer   1,550  4/14/2026\n");
    Sql("UPDATE reminders SET date = 46096 + 10 / 24.0 WHERE id = 2");
    EXPECT_EQ(Run({"due", "--within", "0", "--within-distance", "0"}).status, 2);
    SetClock("2026-03-15T09:59:59Z");
    EXPECT_EQ(Run({"due", "--within", "0", "--within-distance", "0"}).status, 0);
}

/// The ten values from the painted screen, which has a label's line before each.
std::string ValuesOn(const Lines& screen) {
    std::string values;
    for (std::size_t line = 2; line + 1 < screen.size(); line += 2)
        values += screen[line].substr(2) + '\n';
    return values;
}

TEST_F(Commands, StatsAreThoseOfTheQuickStatsScreen) {
    std::mt19937 random(20260315);
    const auto draw = [&](int first, int last) {
        return first + static_cast<int>(random() % static_cast<unsigned>(last - first + 1));
    };
    constexpr int Vehicles = 12;
    std::string sql = "BEGIN;";
    int key = 1100;
    for (int vehicle = 1; vehicle <= Vehicles; ++vehicle) {
        sql += "INSERT INTO vehicles VALUES (" + std::to_string(vehicle) + ", " + std::to_string(1000 + vehicle)
            + ", 'V" + std::to_string(vehicle) + "', '', '', '', 0, 2000, '', '', '', '', 1, '', '', '');";
        for (int entry = draw(0, 12); entry > 0; --entry, ++key)
            sql += "INSERT INTO entries VALUES (" + std::to_string(key) + ',' + std::to_string(key) + ','
                + std::to_string(1000 + vehicle) + ',' + std::to_string(46000 - entry * draw(5, 7)) + ','
                + std::to_string(draw(1, 10) < 7 ? 1 : draw(2, 4)) + ','
                + std::to_string(20000 - entry * draw(150, 200)) + ',' + std::to_string(draw(-100, 9999)) + "/100.0,"
                + std::to_string(draw(0, 5000)) + "/100.0, 0, '', '', '" + (draw(0, 1) == 0 ? "" : "Nord") + "');";
    }
    Sql(sql + "UPDATE sequence SET next_ref = 5000; COMMIT");
    for (int vehicle = 1; vehicle <= Vehicles; ++vehicle) {
        const std::string units[]
            = {std::to_string(draw(0, 1)), std::to_string(draw(0, 2)), std::to_string(draw(0, 3))};
        ConsoleProcess::Surroundings surroundings = Surroundings();
        surroundings.insert({{"HANDSET_SCREEN", "400x1200"}, {"HANDSET_CLOCK", "2026-03-15T10:00:00.250Z"}});
        ConsoleProcess console(CONSOLE);
        console.Start(surroundings);
        const Lines screen = console.AskAll(
            {"registry set UnitDistance dword " + units[0], "registry set UnitVolume dword " + units[1],
                "registry set UnitFuelEconomy dword " + units[2], "registry set UnitSetupMsgShown dword 1",
                "registry set LastActiveVehicle dword " + std::to_string(1000 + vehicle), "boot", "key soft2", "key 3",
                "screen"});
        console.Kill();
        ASSERT_EQ(screen.front(), "[Quick Stats]");
        const std::string out = Run({"stats", "--vehicle", "V" + std::to_string(vehicle)}).out;
        std::string values;
        std::istringstream lines(out);
        for (std::string line; std::getline(lines, line);)
            values += line.substr(27) + '\n';
        EXPECT_EQ(values, ValuesOn(screen)) << out;
    }
}

TEST_F(Commands, ChartsOfALogAreTrueToIt) {
    Sql(Roadster);
    Sql("INSERT INTO entries VALUES (3, 1004, 1001, 39095, 1, 1400, 45, 15, 3, '', '', '');"
        "INSERT INTO entries VALUES (4, 1005, 1001, 39100, 1, 1300, 45, 15, 3, '', '', '');" // a reading that is wrong
        "INSERT INTO entries VALUES (5, 1006, 1001, 39110, 1, 1500, 30, 10, 3, '', '', '')");
    const auto count = [](const std::string& text, const std::string& part) {
        std::size_t found = 0;
        for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
            ++found;
        return found;
    };
    const std::string economy = Run({"chart", "economy"}).out;
    EXPECT_EQ(count(economy, "<circle"), 2U);
    EXPECT_EQ(count(economy, "2007-01-13: 26.67 mi/gal"), 1U) << economy;
    EXPECT_EQ(count(Run({"chart", "price", "--from", "2007-01-14"}).out, "3.00 $/gal<"), 2U);
    // December 2006 has no entry and is there all the same.
    const std::string costs = Run({"chart", "costs"}).out;
    EXPECT_EQ(count(costs, "2006-12"), 1U) << costs;
    EXPECT_EQ(count(costs, "2007-01 Fuel: 120.00 $"), 1U);
    EXPECT_EQ(count(costs, "2006-10 Repair: 120.00 $"), 1U);
    const std::string shares = Run({"chart", "shares"}).out;
    EXPECT_LT(shares.find("55.6 % (150.00 $)"), shares.find("44.4 % (120.00 $)"));
    for (const char* kind : {"economy", "price", "costs", "cost-per-distance", "distance", "shares"})
        EXPECT_EQ(count(Run({"chart", kind, "--from", "2020-01-01"}).out, "Nothing to show"), 1U) << kind;
    EXPECT_EQ(Run({"chart", "colours"}).status, EX_USAGE);
}

TEST_F(Commands, CalendarsHoldTheRemindersThatHaveADate) {
    Sql(Roadster);
    EXPECT_EQ(Run({"calendar"}).status, tally::NothingToDo);
    Sql("INSERT INTO reminders VALUES (1, 1010, 1001, 46100.5, 2000000000, 'Belt; new, \\ ' || char(10) || '2', ''),"
        "(2, 1011, 1001, 2958465, 9000, 'by reading alone', ''),"
        "(3, 1012, 1001, 46101, 9000, printf('%.*c', 90, 'x') || char(8364) || char(8364), '')");
    EXPECT_EQ(Run({"calendar"}).out,
        "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Odoledger//odoledger-tally//EN\r\n"
        "BEGIN:VEVENT\r\nUID:reminder-1010-of-1001@odoledger.invalid\r\nDTSTAMP:20260315T100000Z\r\n"
        "DTSTART;VALUE=DATE:20260319\r\nSUMMARY:Roadster (2007): Belt\\; new\\, \\\\ \\n2\r\nTRANSP:TRANSPARENT\r\n"
        "END:VEVENT\r\n"
        "BEGIN:VEVENT\r\nUID:reminder-1012-of-1001@odoledger.invalid\r\nDTSTAMP:20260315T100000Z\r\n"
        "DTSTART;VALUE=DATE:20260320\r\n"
        "SUMMARY:Roadster (2007): "
            + std::string(50, 'x') + "\r\n " + std::string(40, 'x')
            + "\xE2\x82\xAC\xE2\x82\xAC\r\n"
              "DESCRIPTION:Or at 9\\,000 miles\r\nTRANSP:TRANSPARENT\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n");
}

} // namespace
