// `save N`: N transactions, one after the other; says the number of each that was answered. `check`: says how many of
// them the file holds, or what is wrong with it.

#include <assert.h>
#include <sqlite3.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#undef NDEBUG

static sqlite3* file;

static void Do(const char* words) {
    char* message = NULL;
    if (sqlite3_exec(file, words, NULL, NULL, &message) == SQLITE_OK)
        return;
    printf("%s: %s\n", words, message);
    exit(1);
}

static void Save(int count) {
    Do("CREATE TABLE IF NOT EXISTS rows (number INTEGER PRIMARY KEY, text TEXT)");
    for (int number = 1; number <= count; ++number) {
        char words[200];
        // Some of them grow the file, all of them change pages that are there.
        snprintf(words, sizeof words,
            "BEGIN IMMEDIATE; INSERT INTO rows VALUES (%d, hex(randomblob(%d)));"
            "UPDATE rows SET text = upper(text) WHERE number %% 7 = %d; COMMIT",
            number, 200 + number % 5 * 700, number % 7);
        Do(words);
        printf("%d\n", number);
        fflush(stdout);
    }
}

/// The rows are 1 to N without a gap, unless the table itself was not stored yet.
static void Check(void) {
    Do("CREATE TABLE IF NOT EXISTS rows (number INTEGER PRIMARY KEY, text TEXT)");
    sqlite3_stmt* statement = NULL;
    assert(sqlite3_prepare_v2(file,
               "SELECT count(*), ifnull(max(number), 0), (SELECT * FROM pragma_integrity_check) FROM rows", -1,
               &statement, NULL)
        == SQLITE_OK);
    assert(sqlite3_step(statement) == SQLITE_ROW);
    const char* words = (const char*)sqlite3_column_text(statement, 2);
    if (strcmp(words, "ok") != 0 || sqlite3_column_int(statement, 0) != sqlite3_column_int(statement, 1))
        printf("damaged: %s\n", words);
    else
        printf("%d\n", sqlite3_column_int(statement, 0));
    sqlite3_finalize(statement);
}

int main(int count, char** words) {
    assert(sqlite3_open("/device/log", &file) == SQLITE_OK);
    Do("PRAGMA journal_mode = DELETE; PRAGMA synchronous = EXTRA; PRAGMA cache_spill = OFF");
    if (count > 2)
        Save(atoi(words[2]));
    else
        Check();
    assert(sqlite3_close(file) == SQLITE_OK);
    return 0;
}
