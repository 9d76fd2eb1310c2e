#include "processes.h"

#include <signal.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <map>

#include "base/failure.h"

namespace desk {

namespace {

int stepsLeft = 0;
int writesInARow = 0;
sqlite3_vfs* realFiles = nullptr;
sqlite3_io_methods realMethods;  // whatever a file is for, it is written in one way

void step() {
    if (--stepsLeft <= 0) raise(SIGKILL);
}

void stepThatOrders() {
    writesInARow = 0;
    step();
}

int write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 at) {
    constexpr int longRun = 20;
    if (writesInARow++ % longRun == 0) step();
    return realMethods.xWrite(file, bytes, count, at);
}

int sync(sqlite3_file* file, int flags) {
    stepThatOrders();
    return realMethods.xSync(file, flags);
}

int truncate(sqlite3_file* file, sqlite3_int64 size) {
    stepThatOrders();
    return realMethods.xTruncate(file, size);
}

int remove(sqlite3_vfs*, const char* name, int syncFolder) {
    stepThatOrders();
    return realFiles->xDelete(realFiles, name, syncFolder);
}

int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    static std::map<const sqlite3_io_methods*, sqlite3_io_methods> dying;
    const int result = realFiles->xOpen(realFiles, name, file, flags, outFlags);
    if (result != SQLITE_OK || file->pMethods == nullptr) return result;
    realMethods = *file->pMethods;
    auto& methods = dying[file->pMethods];
    methods = realMethods;
    methods.xWrite = write;
    methods.xSync = sync;
    methods.xTruncate = truncate;
    file->pMethods = &methods;
    return result;
}

}  // namespace

pid_t inProcess(const std::function<void()>& work) {
    const pid_t process = fork();
    if (process != 0) return process;
    try {
        work();
    } catch (const RuntimeFailure& failure) {
        std::fprintf(stderr, "%ld %s\n", failure.number(), failure.what());
        _exit(1);
    } catch (...) {
        // Nothing of it may leave this frame: there would be two of the tests from then on.
        _exit(2);
    }
    _exit(0);
}

int endOf(pid_t process) {
    int status = 0;
    waitpid(process, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

void dieBeforeStep(int last) {
    static sqlite3_vfs dying;
    stepsLeft = last;
    realFiles = sqlite3_vfs_find(nullptr);
    dying = *realFiles;
    dying.zName = "dying";
    dying.xOpen = open;
    dying.xDelete = remove;
    sqlite3_vfs_register(&dying, 1);
}

}  // namespace desk
