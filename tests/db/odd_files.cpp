#include "odd_files.h"

#include <signal.h>
#include <sqlite3.h>

#include <map>

namespace desk {

namespace {

/// The methods of an open file with the real ones behind them. SQLite knows it by its first member.
struct Watched {
    sqlite3_io_methods methods;
    const sqlite3_io_methods* real;
};

int stepsLeft = 0;
int writesInARow = 0;
sqlite3_vfs* realFiles = nullptr;
void (*changeMethods)(sqlite3_io_methods& methods) = nullptr;

void step() {
    if (--stepsLeft <= 0) raise(SIGKILL);
}

void stepThatOrders() {
    writesInARow = 0;
    step();
}

const sqlite3_io_methods& realOf(sqlite3_file* file) {
    return *reinterpret_cast<const Watched*>(file->pMethods)->real;
}

int write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 at) {
    constexpr int longRun = 20;
    if (writesInARow++ % longRun == 0) step();
    return realOf(file).xWrite(file, bytes, count, at);
}

int sync(sqlite3_file* file, int flags) {
    stepThatOrders();
    return realOf(file).xSync(file, flags);
}

int truncate(sqlite3_file* file, sqlite3_int64 size) {
    stepThatOrders();
    return realOf(file).xTruncate(file, size);
}

int remove(sqlite3_vfs*, const char* name, int syncFolder) {
    stepThatOrders();
    return realFiles->xDelete(realFiles, name, syncFolder);
}

int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    static std::map<const sqlite3_io_methods*, Watched> known;
    const int result = realFiles->xOpen(realFiles, name, file, flags, outFlags);
    if (result != SQLITE_OK || file->pMethods == nullptr) return result;
    auto& watched = known[file->pMethods];
    watched.real = file->pMethods;
    watched.methods = *file->pMethods;
    changeMethods(watched.methods);
    file->pMethods = &watched.methods;
    return result;
}

/// Puts `odd` between SQLite and the real files; whoever opens one from then on meets the changed methods.
void install(sqlite3_vfs& odd, const char* name, void (*change)(sqlite3_io_methods& methods)) {
    realFiles = sqlite3_vfs_find(nullptr);
    changeMethods = change;
    odd = *realFiles;
    odd.zName = name;
    odd.xOpen = open;
    sqlite3_vfs_register(&odd, 1);
}

sqlite3_vfs unlockable;

}  // namespace

void dieBeforeStep(int last) {
    static sqlite3_vfs dying;
    stepsLeft = last;
    install(dying, "dying", [](sqlite3_io_methods& methods) {
        methods.xWrite = write;
        methods.xSync = sync;
        methods.xTruncate = truncate;
    });
    dying.xDelete = remove;
}

UnlockableFiles::UnlockableFiles() {
    install(unlockable, "unlockable", [](sqlite3_io_methods& methods) {
        methods.xLock = [](sqlite3_file*, int) { return SQLITE_IOERR_LOCK; };
    });
}

UnlockableFiles::~UnlockableFiles() {
    sqlite3_vfs_unregister(&unlockable);
    sqlite3_vfs_register(realFiles, 1);
}

}  // namespace desk
