// Logs on their way out, in and back.

#include "exchange/csv_rows.h"
#include "exchange/decode_text.h"
#include "exchange/plain_text.h"
#include "tally_device.h"

#include <random>

namespace {

constexpr const char* OddTexts[] = {"", "Oil", "=1+1", "'=1", "''", "-5", "+", "@x", "a,b;c\td", "say \"no\"", "\"",
    "two\nlines", "two\r\nlines\r", "\r",
    "\xEF\xBC\x9D"
    "1",
    " blank ", "T\xC3\x9CV \xF0\x9F\x9A\x97",
    "\xEF\xBB\xBF"
    "bom",
    "null", "NaN", "2026-03-01", "1.50", "#1", "\\", "\\\"", "\x01\x7F",
    "\xE2\x80\xAE"
    "rtl"};

std::string Quoted(const std::string& text) {
    std::string quoted = "'";
    for (const char character : text)
        quoted.append(character == '\'' ? 2 : 1, character);
    return quoted + "'";
}

class Exchange : public TallyDevice {
protected:
    int Draw(int first, int last) {
        return first + static_cast<int>(random_() % static_cast<unsigned>(last - first + 1));
    }
    std::string Text() { return Quoted(OddTexts[Draw(0, static_cast<int>(std::size(OddTexts)) - 1)]); }
    std::string Float() {
        constexpr const char* Odd[]
            = {"0", "-0.0", "0.1", "3.4028234663852886e38", "1e-45", "16777217", "-12.345", "9e999"};
        return Draw(0, 2) == 0 ? Odd[Draw(0, 7)] : std::to_string(Draw(-100, 99999)) + "/100.0";
    }
    std::string Whole() {
        constexpr const char* Odd[] = {"0", "-1", "2147483647", "-2147483648"};
        return Draw(0, 5) == 0 ? Odd[Draw(0, 3)] : std::to_string(Draw(0, 300000));
    }
    /// As the file has them: days since 30 December 1899, from 1601 to 9999.
    std::string Date() {
        constexpr const char* Odd[] = {"-109205", "2958465.5", "-0.25", "0", "46000.123456789", "2958465"};
        return Draw(0, 5) == 0 ? Odd[Draw(0, 5)]
                               : std::to_string(Draw(40000, 46000)) + (Draw(0, 1) == 0 ? "" : "+0.75");
    }
    std::string RandomLog() {
        std::string sql = "BEGIN;";
        const int vehicles = Draw(0, 4);
        int key = 1000;
        for (int vehicle = 1; vehicle <= vehicles; ++vehicle) {
            const std::string owner = std::to_string(++key);
            sql += "INSERT INTO vehicles VALUES (NULL," + owner + ',' + (Draw(0, 1) == 0 ? "'Twin'" : Text()) + ','
                + Text() + ',' + Text() + ',' + Text() + ',' + Whole() + ',' + Whole();
            for (int text = 0; text < 4; ++text)
                sql += ',' + Text();
            sql += ',' + Date() + ',' + Text() + ',' + Text() + ',' + Text() + ");";
            for (int entry = Draw(0, 8); entry > 0; --entry)
                sql += "INSERT INTO entries VALUES (NULL," + std::to_string(++key) + ',' + owner + ',' + Date() + ','
                    + std::to_string(Draw(1, 5)) + ',' + Whole() + ',' + Float() + ',' + Float() + ',' + Float() + ','
                    + Text() + ',' + Text() + ',' + Text() + ");";
            for (int reminder = Draw(0, 3); reminder > 0; --reminder)
                sql += "INSERT INTO reminders VALUES (NULL," + std::to_string(++key) + ',' + owner + ',' + Date() + ','
                    + Whole() + ',' + Text() + ',' + Text() + ");";
        }
        for (int keyword = Draw(0, 5); keyword > 0; --keyword)
            sql += "INSERT INTO keywords VALUES (NULL," + std::to_string(++key) + ',' + std::to_string(Draw(1, 4)) + ','
                + Text() + ',' + Text() + ");";
        sql += "UPDATE sequence SET next_ref = " + std::to_string(key + 1) + "; COMMIT;";
        return sql;
    }
    void FillAtRandom() {
        Empty();
        Sql(RandomLog());
    }
    std::string Export(const char* format = "csv") { return Run({"export", "--format", format}).out; }
    std::string Put(const std::string& contents) {
        const std::string path = folder_ / "in";
        Write(path, contents);
        return path;
    }
    /// All rows of the program's tables without their keys, which are never given out twice.
    static std::string Records() {
        std::string rows;
        for (const char* table : {"vehicles", "entries", "reminders", "keywords"})
            rows += Sql(std::string("SELECT * FROM ") + table) + '\n';
        return rows;
    }

private:
    std::mt19937 random_{20260315};
};

TEST_F(Exchange, OutAndInAndOutAgainIsTheSameBytes) {
    for (int run = 0; run < 40 && !HasFailure(); ++run) {
        SCOPED_TRACE(run);
        FillAtRandom();
        const std::string csv = Export();
        const std::string json = Export("json");
        for (const std::string& file : {csv, json}) {
            Empty();
            const Outcome outcome = Run({"import", Put(file)});
            const bool isEmpty = std::count(csv.begin(), csv.end(), '\n') == 1;
            ASSERT_EQ(outcome.status, isEmpty ? 1 : 0) << outcome.err;
            EXPECT_EQ(Export(), csv);
            EXPECT_EQ(Export("json"), json);
            EXPECT_EQ(Run({"import", Put(file)}).status, 1) << "nothing is new the second time";
            EXPECT_EQ(Export(), csv);
        }
    }
}

TEST_F(Exchange, UndoneImportsLeaveTheLogAsItWas) {
    for (int run = 0; run < 20 && !HasFailure(); ++run) {
        SCOPED_TRACE(run);
        FillAtRandom();
        const std::string file = Put(Export());
        FillAtRandom();
        // The rule for the reading of a vehicle is not what is looked at here.
        Sql("UPDATE vehicles SET odometer = ifnull((SELECT max(odometer) FROM entries WHERE vehicle = vehicles.ref), "
            "odometer)");
        const std::string before = Records();
        if (Run({"import", file}).status == 1)
            continue;
        EXPECT_EQ(Run({"undo"}).status, 0);
        EXPECT_EQ(Records(), before);
        EXPECT_EQ(Sql("SELECT count(*) FROM tally_marks"), "0");
        EXPECT_EQ(Run({"import", file}).status, 0) << "what was undone does not count as there";
    }
}

constexpr const char* Titles = "record,vehicle,date,odometer (km),total,volume (l),price,name,vendor,marks\n";

TEST_F(Exchange, RowsThatLookTheSameCount) {
    const std::string fee = "expense,Van,2024-03-24,50900,12.5,,,Parking,,\n";
    EXPECT_EQ(Run({"import", "--distance", "km", Put(Titles + fee + fee)}).status, 0);
    EXPECT_EQ(Sql("SELECT count(*) FROM entries"), "2") << "two fees of a day are two";
    Sql("UPDATE entries SET name = 'Parking, centre' WHERE id = 1");
    const Outcome third
        = Run({"import", Put(Titles + fee + fee + fee + "expense,Van,2024-03-25,50900,12.5,,,Toll,,\n")});
    EXPECT_NE(third.err.find("2 records added, 2 already there"), std::string::npos) << third.err;
    Sql("UPDATE entries SET amount = 13 WHERE name = 'Toll'");
    const Outcome undone = Run({"undo"});
    EXPECT_NE(undone.err.find("1 records taken out, 1 stay"), std::string::npos) << undone.err;
    EXPECT_NE(undone.err.find("stays: expense 2024-03-25"), std::string::npos) << undone.err;
    EXPECT_EQ(Run({"undo", "1"}).status, 0);
    EXPECT_EQ(Sql("SELECT name, odometer FROM vehicles"), "Van|31628") << "it has entries that stay";
    EXPECT_EQ(Sql("SELECT name FROM entries"), "Parking, centre\nToll");
    EXPECT_EQ(Run({"undo"}).status, 1);
    EXPECT_EQ(Run({"undo", "7"}).status, 1);
    EXPECT_EQ(Told, 4);
}

TEST_F(Exchange, UnitsAreConvertedWithExactFactors) {
    const std::string file = Put(Titles
        + std::string("fuel,Van,2024-03-10,160934,40,37.85411784,1.0566882,,,missed\n"
                      "reminder,Van,,16093,,,,Oil,,\nreminder,Van,2027-01-01,,,,,TUV,,\n"));
    ASSERT_EQ(Run({"import", file}).status, 0);
    EXPECT_EQ(
        Sql("SELECT odometer, round(custom1, 5), round(custom2, 4), amount FROM entries"), "100000|10.0|4.0|40.0");
    EXPECT_EQ(Sql("SELECT odometer, date FROM reminders"), "10000|2958465.0\n2000000000|46388.0");
    EXPECT_EQ(Sql("SELECT partial, missed, unknown_odometer FROM tally_marks"), "0|1|0");
    const std::string unsaid = Put("record,vehicle,date,odometer,volume,marks\nfuel,Van,2024-03-11,100,10,\n");
    EXPECT_EQ(Run({"import", unsaid}).status, EX_USAGE);
    EXPECT_EQ(Run({"import", "--distance", "mi", unsaid}).status, EX_USAGE);
    EXPECT_EQ(Run({"import", "--distance", "mi", "--volume", "usgal", unsaid}).status, 0);
    EXPECT_EQ(Sql("SELECT odometer, custom1 FROM entries WHERE id = 2"), "100|10.0");
}

TEST_F(Exchange, FaultsAreToldAllAtOnceAndNothingIsWritten) {
    const std::string file = Put(Titles
        + std::string("fuel,Van,2024-02-31,1,1,1,1,,,\n\nfuel,Van,2024-02-01,1,x,1,1,\"two\nlines\",,\n"
                      "short,Van\nfuel,Van,2024-02-01,1,1,1,1,,,half\nboat,Van,2024-02-01,1,1,1,1,,,\n"
                      "fuel,Van,1600-12-31,1,1,1,1,,,\nfuel,Van,2024-02-03,99999999999,1,1,1,,,\n"
                      "fuel,Van,2024-02-02,2,1,1,1,,,\nfuel,Van,2024-02-01,1,1,1,1,\"open"));
    const std::string before = Records();
    const Outcome refused = Run({"import", file});
    EXPECT_EQ(refused.status, EX_DATAERR);
    for (const char* place : {":2:3: ", ":4:5: ", ":6:0: ", ":7:10: ", ":8:1: ", ":9:3: ", ":10:4: ", ":12:8: "})
        EXPECT_NE(refused.err.find(file + place), std::string::npos) << place << " not in " << refused.err;
    EXPECT_EQ(Records(), before);
    const Outcome tried = Run({"import", "--dry-run", "--skip-faulty", file});
    EXPECT_EQ(tried.status, 0);
    EXPECT_NE(tried.out.find("fuel,Van,1,2024-02-02,1,"), std::string::npos) << tried.out;
    EXPECT_EQ(Records(), before);
    EXPECT_EQ(Run({"import", "--dry-run", file}).status, EX_DATAERR);
    EXPECT_EQ(Run({"import", "--skip-faulty", file}).status, 0);
    EXPECT_EQ(Sql("SELECT count(*) FROM entries"), "1");
    EXPECT_EQ(Run({"import", Put("{\"odoledger\":1,\"records\":[{\"record\":\"fuel\"")}).status, EX_DATAERR);
    EXPECT_EQ(Run({"import", Put(Titles)}).status, 1) << "a header alone";
    EXPECT_EQ(Run({"import", Put("anything\n")}).status, EX_DATAERR);
    EXPECT_EQ(Run({"import", file + "-that-is-not"}).status, EX_NOINPUT);
}

TEST_F(Exchange, VehiclesAreMatchedOrMadeAndNeverGuessed) {
    const std::string unnamed
        = Put("record,date,odometer (mi),total,volume (usgal),name,marks\nrepair,2024-01-01,5,9,,Oil,\n");
    EXPECT_EQ(Run({"import", unnamed}).status, EX_USAGE);
    EXPECT_EQ(Run({"import", "--vehicle", "Van", unnamed}).status, 0);
    EXPECT_EQ(Run({"import", unnamed}).status, 1) << "the only vehicle there is";
    const std::string two
        = Put(Titles + std::string("repair,A,2024-01-01,5,9,,,Oil,,\nrepair,B,2024-01-01,5,9,,,Oil,,\n"));
    EXPECT_EQ(Run({"import", "--vehicle", "Van", two}).status, EX_USAGE);
    EXPECT_EQ(Run({"import", two}).status, 0);
    EXPECT_EQ(Sql("SELECT name FROM vehicles"), "Van\nA\nB");
    EXPECT_EQ(Sql("SELECT name FROM sqlite_schema WHERE type = 'index' AND sql > ''"), "entries_in_order");
}

TEST_F(Exchange, AFullDiskLeavesTheLogAndAFormerLogIsKept) {
    Sql("INSERT INTO vehicles VALUES (1, 1001, 'Van', '', '', '', 7, 0, '', '', '', '', 1, '', '', '')");
    const std::string before = Read(HostPath());
    std::string rows = Titles;
    for (int row = 0; row < 2000; ++row)
        rows += "repair,Van,2024-01-01," + std::to_string(row) + ",1,,,Oil and filters and more,,\n";
    const std::string file = Put(rows);
    EXPECT_EQ(WithoutRoom(before.size() + 4096, [&] { return Run({"import", file}).status; }), EX_IOERR);
    EXPECT_EQ(Records(), Sql("SELECT * FROM vehicles") + "\n\n\n\n");
    EXPECT_EQ(Run({"import", file}).status, 0);
    EXPECT_EQ(LogFile(Storage() / "copies" / "before-import-1.dat").Run("SELECT odometer FROM vehicles"), "7");
}

TEST_F(Exchange, AddFollowsTheRulesOfTheForms) {
    Sql("INSERT INTO vehicles VALUES (1, 1001, 'Van', '', '', '', 1000, 0, '', '', '', '', 1, '', '', '')");
    const std::pair<std::vector<std::string>, int> cases[] = {{{"fuel", "--volume", "10", "--price", "3"}, 0},
        {{"fuel", "--volume", "10", "--total", "30", "--odometer", "+312"}, 0}, {{"fuel", "--volume", "10"}, EX_USAGE},
        {{"repair", "--total", "5"}, EX_USAGE}, {{"trip", "--name", "Work", "--end", "1300"}, EX_USAGE},
        {{"trip", "--name", "Work", "--end", "+20"}, 0},
        {{"expense", "--name", "Wash", "--date", "2026-01-31", "--odometer", "5"}, 0},
        {{"expense", "--name", "Wash", "--odometer", "9999999999"}, EX_USAGE}, {{"boat"}, EX_USAGE}};
    for (const auto& [arguments, status] : cases) {
        std::vector<std::string> all{"add"};
        all.insert(all.end(), arguments.begin(), arguments.end());
        const Outcome outcome = Run(all);
        EXPECT_EQ(outcome.status, status) << testing::PrintToString(arguments) << outcome.err;
    }
    EXPECT_EQ(Sql("SELECT date, type, odometer, amount, custom1, custom2, name FROM entries"),
        "46096.0|1|1000|30.0|10.0|3.0|\n46096.0|1|1312|30.0|10.0|3.0|\n46096.0|3|1332|0.0|1312.0|1332.0|Work\n"
        "46053.0|4|5|0.0|0.0|0.0|Wash");
    EXPECT_EQ(Sql("SELECT odometer FROM vehicles"), "1332");
    EXPECT_EQ(Told, 4);
}

TEST(CsvRows, AreReadHoweverLooselyTheyWereWritten) {
    const auto read = [](const std::string& text) {
        std::string told;
        for (const exchange::CsvRow& row : exchange::ReadCsvRows(text, exchange::SeparatorOf(text)).rows) {
            told += std::to_string(row.line);
            for (const std::string& cell : row.cells)
                told += '|' + cell;
            told += '\n';
        }
        return told;
    };
    EXPECT_EQ(read("a,b\r\rc,\"d\re\"\rf"), "1|a|b\n3|c|d\re\n5|f\n");
    EXPECT_EQ(read("a;b,c;\"x\"\"y\" 2\r\n\r\n;\n\"\""), "1|a|b,c|x\"y 2\n3||\n4|\n");
    exchange::Encoding encoding;
    EXPECT_EQ(exchange::DecodeText("\xEF\xBB\xBF"
                                   "a\xC3\xA9",
                  &encoding),
        "a\xC3\xA9");
    EXPECT_EQ(encoding, exchange::Encoding::Utf8);
    EXPECT_EQ(exchange::DecodeText("\x80\xE9", &encoding), "\xE2\x82\xAC\xC3\xA9");
    EXPECT_EQ(encoding, exchange::Encoding::Windows1252);
}

} // namespace
