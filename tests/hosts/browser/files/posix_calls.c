// The calls that the program makes of the pool, as a program. A line that it prints says what lasts from then on: paths
// and contents, in order.

#include <assert.h>
#include <dirent.h>
#include <emscripten.h>
#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#undef NDEBUG

static const char* const Fresh = "/device/Documents/.fresh";
static const char* const Log = "/device/Documents/My Vehicles.dat";
static const char* const Journal = "/device/Documents/My Vehicles.dat-journal";

static void Lasts(const char* words) {
    puts(words);
    fflush(stdout);
}

static int Create(const char* path, const char* text) {
    const int file = open(path, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0600);
    assert(file >= 0);
    assert(write(file, text, strlen(text)) == (ssize_t)strlen(text));
    return file;
}

static off_t SizeOf(int file) {
    struct stat found;
    assert(fstat(file, &found) == 0);
    return found.st_size;
}

static ino_t NumberOf(const char* path) {
    struct stat found;
    return stat(path, &found) == 0 ? found.st_ino : 0;
}

static void SyncFolder(const char* path) {
    const int folder = open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    assert(folder >= 0 && fsync(folder) == 0 && close(folder) == 0);
}

static void WriteAndRename(void) {
    assert(mkdir("/device/Documents", 0700) == 0);
    assert(mkdir("/device/Documents", 0700) == -1 && errno == EEXIST);
    const int file = Create(Fresh, "first");
    Lasts("/Documents/.fresh=");
    assert(fsync(file) == 0);
    Lasts("/Documents/.fresh=first");
    assert(open(Fresh, O_WRONLY | O_CREAT | O_EXCL, 0600) == -1 && errno == EEXIST);
    assert(fchmod(file, 0600) == 0);
    assert(rename(Fresh, Log) == 0);
    SyncFolder("/device/Documents");
    Lasts("/Documents/My Vehicles.dat=first");
    // An open file goes on under its new name.
    assert(SizeOf(file) == 5);
    assert(pwrite(file, "tide", 4, 4) == 4 && fdatasync(file) == 0);
    Lasts("/Documents/My Vehicles.dat=firstide");
    assert(NumberOf(Fresh) == 0 && errno == ENOENT);
    close(file);
}

static void Replace(void) {
    const int former = open(Log, O_RDWR | O_CLOEXEC);
    const ino_t number = NumberOf(Log);
    const int file = Create(Fresh, "second");
    assert(fsync(file) == 0 && rename(Fresh, Log) == 0 && close(file) == 0);
    Lasts("/Documents/My Vehicles.dat=second");
    // Who has the former file open still has it, and can see that it was replaced.
    char text[16] = "";
    assert(read(former, text, sizeof text) == 8 && strcmp(text, "firstide") == 0);
    assert(SizeOf(former) == 8 && NumberOf(Log) != number);
    close(former);
}

static void RunJournal(void) {
    const int journal = Create(Journal, "undo");
    assert(fsync(journal) == 0);
    Lasts("/Documents/My Vehicles.dat=second;/Documents/My Vehicles.dat-journal=undo");
    assert(ftruncate(journal, 2) == 0 && lseek(journal, 0, SEEK_END) == 2);
    assert(unlink(Journal) == 0);
    Lasts("/Documents/My Vehicles.dat=second");
    assert(SizeOf(journal) == 2);
    close(journal);
    assert(NumberOf(Journal) == 0);
}

/// What was replaced is not found again when the name that took its place is gone.
static void LeaveNoGhosts(void) {
    close(Create("/device/a", "a"));
    close(Create("/device/b", "b"));
    assert(NumberOf("/device/b") != 0 && rename("/device/a", "/device/b") == 0 && unlink("/device/b") == 0);
    assert(NumberOf("/device/b") == 0 && unlink("/device/b") == -1 && errno == ENOENT);
}

static void HasNames(const char* path, const char* expected) {
    DIR* folder = opendir(path);
    assert(folder);
    char names[64] = "";
    for (const struct dirent* entry = readdir(folder); entry; entry = readdir(folder))
        strcat(strcat(names, entry->d_name), " ");
    closedir(folder);
    assert(strcmp(names, expected) == 0);
}

static void WalkFolders(void) {
    assert(mkdir("/device/empty", 0700) == 0);
    assert(rmdir("/device/Documents") == -1 && errno == ENOTEMPTY);
    assert(rename("/device/Documents", "/device/other") == -1 && errno == EPERM);
    HasNames("/device", ". .. Documents empty ");
    assert(rmdir("/device/empty") == 0 && NumberOf("/device/empty") == 0);
    char* place = realpath("/device/./Documents/../Documents/My Vehicles.dat", NULL);
    assert(place && strcmp(place, Log) == 0);
    free(place);
}

static void Append(void) {
    const int file = open(Log, O_WRONLY | O_APPEND);
    struct flock range = {.l_type = F_WRLCK};
    assert(fcntl(file, F_SETLK, &range) == 0);
    assert(write(file, " and third", 10) == 10 && fsync(file) == 0);
    close(file);
    const int emptied = open("/device/x", O_RDWR | O_CREAT | O_TRUNC, 0600);
    assert(fsync(emptied) == 0 && close(emptied) == 0 && unlink("/device/x") == 0);
    Lasts("/Documents/My Vehicles.dat=second and third");
}

static void FillPool(void) {
    char path[32];
    int count = 0;
    do {
        snprintf(path, sizeof path, "/device/%d", count++);
    } while (close(open(path, O_WRONLY | O_CREAT | O_EXCL, 0600)) == 0);
    assert(open(path, O_WRONLY | O_CREAT | O_EXCL, 0600) == -1 && errno == ENOSPC);
    assert(NumberOf(path) == 0);
    // Of the eight that there are the log has one, and whatever was closed without a name has come back.
    assert(count == 8);
    while (--count > 0) {
        snprintf(path, sizeof path, "/device/%d", count - 1);
        assert(unlink(path) == 0);
    }
}

/// Another process finds the files in their folders, and no folder without a file.
static void FindAgain(void) {
    HasNames("/device", ". .. Documents ");
    HasNames("/device/Documents", ". .. My Vehicles.dat ");
    struct stat found;
    assert(stat(Log, &found) == 0 && found.st_size == 16 && S_ISREG(found.st_mode) && found.st_mtime > 0);
}

int main(int count, char** words) {
    (void)words;
    if (count > 1) {
        FindAgain();
        return 0;
    }
    WriteAndRename();
    // A program that waits in between: what follows runs out of an event.
    emscripten_sleep(0);
    Replace();
    RunJournal();
    LeaveNoGhosts();
    WalkFolders();
    Append();
    FillPool();
    Lasts("/Documents/My Vehicles.dat=second and third");
    return 0;
}
