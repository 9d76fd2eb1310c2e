#include "dying_files.h"

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
    watched.methods.xWrite = write;
    watched.methods.xSync = sync;
    watched.methods.xTruncate = truncate;
    file->pMethods = &watched.methods;
    return result;
}

}  // namespace

void dieBeforeStep(int last) {
    static sqlite3_vfs dying;
    realFiles = sqlite3_vfs_find(nullptr);
    stepsLeft = last;
    dying = *realFiles;
    dying.zName = "dying";
    dying.xOpen = open;
    dying.xDelete = remove;
    sqlite3_vfs_register(&dying, 1);
}

}  // namespace desk
