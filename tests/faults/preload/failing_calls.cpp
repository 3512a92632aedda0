// Preloaded into the program: makes one call of a kind fail, see fault_plan.h. It goes to the
// system past the C library wherever it can, so that nothing in here is counted.

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>

#include "tests/faults/fault_plan.h"

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* old, std::size_t size);
}

namespace {

using namespace pelk;

int calls = 0;
int at = 0;
int error = 0;
const char* folder = "";
/// From the start of main to its end.
bool armed = false;
int counted = 0;

void readPlan(char* text) {
    for (int* number : {&calls, &at, &error})
        *number = static_cast<int>(std::strtol(text, &text, 10));
    folder = text + 1;
}

template <typename... Values>
int raw(long number, Values... values) {
    return static_cast<int>(::syscall(number, values...));
}

/// Counts a call, and tells whether it is to fail. Sets errno then.
bool strikes(int call) {
    if (!armed || (calls & call) == 0 || __atomic_add_fetch(&counted, 1, __ATOMIC_SEQ_CST) != at)
        return false;
    char mark[4096];
    std::snprintf(mark, sizeof mark, "%s/%s", folder, kStruckName);
    raw(SYS_openat, AT_FDCWD, mark, O_WRONLY | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (error == kKill)
        ::syscall(SYS_kill, ::getpid(), SIGKILL);
    errno = error;
    return true;
}

/// The program works in the folder, so a relative path lies there, too.
bool strikesPath(int call, const char* path) {
    return (path[0] != '/' || std::strncmp(path, folder, std::strlen(folder)) == 0) &&
           strikes(call);
}

/// What the program prints is not counted.
bool strikesFile(int call, int descriptor) {
    if (!armed || (calls & call) == 0 || descriptor <= STDERR_FILENO)
        return false;
    char link[32];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
    char path[4096];
    const long length = ::syscall(SYS_readlinkat, AT_FDCWD, link, path, sizeof path - 1);
    path[length > 0 ? length : 0] = '\0';
    return strikesPath(call, path);
}

bool strikesAt(int call, int from, const char* path) {
    return from == AT_FDCWD || path[0] == '/' ? strikesPath(call, path) : strikesFile(call, from);
}

/// GLib ends the program on purpose when there is no memory: what it asks for is not counted.
bool strikesMemory(void* caller) {
    if (!armed || (calls & kMemory) == 0)
        return false;
    Dl_info place{};
    if (::dladdr(caller, &place) != 0 && std::strstr(place.dli_fname, "libglib-") != nullptr)
        return false;
    return strikes(kMemory);
}

template <typename Function>
Function* next(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

int statPath(int from, const char* path, struct stat* status, int flags) {
    return strikesAt(kStat, from, path) ? -1 : raw(SYS_newfstatat, from, path, status, flags);
}

int openPath(int from, const char* path, int flags, va_list rest) {
    const int mode = (flags & O_CREAT) != 0 ? va_arg(rest, int) : 0;
    va_end(rest);
    return strikesAt(kOpen, from, path) ? -1 : raw(SYS_openat, from, path, flags, mode);
}

/// A read or write of a file, whole, in half or not at all.
template <typename Bytes, typename... Offset>
ssize_t transfer(int kind, long number, int file, Bytes bytes, std::size_t count,
                 Offset... offset) {
    if (strikesFile(kind, file)) {
        if (error != kHalf)
            return -1;
        count = (count + 1) / 2;
    }
    return ::syscall(number, file, bytes, count, offset...);
}

int (*programMain)(int, char**, char**) = nullptr;

int watchedMain(int count, char** arguments, char** environment) {
    readPlan(std::getenv(kFaultVariable));
    armed = true;
    const int status = programMain(count, arguments, environment);
    armed = false;
    return status;
}

}  // namespace

extern "C" {

int __libc_start_main(int (*main)(int, char**, char**), int count, char** arguments, void* init,
                      void* fini, void* loaderFini, void* stackEnd) {
    programMain = main;
    using Start = int(decltype(main), int, char**, void*, void*, void*, void*);
    return next<Start>("__libc_start_main")(watchedMain, count, arguments, init, fini, loaderFini,
                                            stackEnd);
}

int stat(const char* path, struct stat* status) noexcept {
    return statPath(AT_FDCWD, path, status, 0);
}
int lstat(const char* path, struct stat* status) noexcept {
    return statPath(AT_FDCWD, path, status, AT_SYMLINK_NOFOLLOW);
}
int fstatat(int from, const char* path, struct stat* status, int flags) noexcept {
    return statPath(from, path, status, flags);
}
int fstat(int file, struct stat* status) noexcept {
    return strikesFile(kStat, file) ? -1 : raw(SYS_fstat, file, status);
}
int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    return openPath(AT_FDCWD, path, flags, rest);
}
int openat(int from, const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    return openPath(from, path, flags, rest);
}
DIR* opendir(const char* path) {
    return strikesPath(kOpen, path) ? nullptr : next<DIR*(const char*)>("opendir")(path);
}
dirent* readdir(DIR* folderStream) {
    return strikesFile(kRead, ::dirfd(folderStream)) && error != kHalf
               ? nullptr
               : next<dirent*(DIR*)>("readdir")(folderStream);
}
ssize_t read(int file, void* bytes, std::size_t count) {
    return transfer(kRead, SYS_read, file, bytes, count);
}
ssize_t pread(int file, void* bytes, std::size_t count, off_t offset) {
    return transfer(kRead, SYS_pread64, file, bytes, count, offset);
}
ssize_t write(int file, const void* bytes, std::size_t count) {
    return transfer(kWrite, SYS_write, file, bytes, count);
}
int fsync(int file) {
    return strikesFile(kSync, file) ? -1 : raw(SYS_fsync, file);
}
/// The system gives a descriptor back even if it reports a failure.
int close(int file) {
    const bool failed = strikesFile(kClose, file);
    const int result = raw(SYS_close, file);
    errno = failed ? error : errno;
    return failed ? -1 : result;
}
int rename(const char* from, const char* to) noexcept {
    return strikesPath(kRename, to) ? -1 : raw(SYS_rename, from, to);
}
int mkdir(const char* path, mode_t mode) noexcept {
    return strikesPath(kMakeFolder, path) ? -1 : raw(SYS_mkdir, path, mode);
}
int flock(int file, int operation) noexcept {
    return strikesFile(kLock, file) ? -1 : raw(SYS_flock, file, operation);
}
int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*run)(void*),
                   void* argument) noexcept {
    if (strikes(kThread))
        return error;
    return next<decltype(pthread_create)>("pthread_create")(thread, attributes, run, argument);
}
void* malloc(std::size_t size) {
    return strikesMemory(__builtin_return_address(0)) ? nullptr : __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size) {
    return strikesMemory(__builtin_return_address(0)) ? nullptr : __libc_calloc(count, size);
}
void* realloc(void* old, std::size_t size) {
    return strikesMemory(__builtin_return_address(0)) ? nullptr : __libc_realloc(old, size);
}
}
