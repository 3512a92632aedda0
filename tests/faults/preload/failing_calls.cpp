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

#include "tests/faults/fault_plan.h"

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* old, std::size_t size);
}

namespace {

using namespace pelk;

char kind[16] = "";
int at = 0;
int error = 0;
char folder[4096] = "";
/// From the start of main to its end.
bool armed = false;
int counted = 0;

bool watches(const char* call) {
    return armed && (std::strcmp(kind, call) == 0 ||
                     (std::strcmp(kind, "file") == 0 && std::strcmp(call, "malloc") != 0 &&
                      std::strcmp(call, "thread") != 0));
}

template <typename... Values>
int raw(long number, Values... values) {
    return static_cast<int>(::syscall(number, values...));
}

/// Counts a call. Returns whether it must fail; `errno` is then set.
bool strikes(const char* call) {
    if (!watches(call) || __atomic_add_fetch(&counted, 1, __ATOMIC_SEQ_CST) != at)
        return false;
    char mark[4200];
    std::snprintf(mark, sizeof mark, "%s/%s", folder, kStruckName);
    raw(SYS_openat, AT_FDCWD, mark, O_WRONLY | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (error == kKill)
        raw(SYS_kill, ::getpid(), SIGKILL);
    errno = error;
    return true;
}

/// The folder is the working directory, so relative paths count as well.
bool strikesPath(const char* call, const char* path) {
    return (path[0] != '/' || std::strncmp(path, folder, std::strlen(folder)) == 0) &&
           strikes(call);
}

/// Output of the program is not counted.
bool strikesFile(const char* call, int descriptor) {
    if (!watches(call) || descriptor <= STDERR_FILENO)
        return false;
    char link[32];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
    char path[4096] = "";
    raw(SYS_readlinkat, AT_FDCWD, link, path, sizeof path - 1);
    return strikesPath(call, path);
}

bool strikesAt(const char* call, int from, const char* path) {
    return from == AT_FDCWD || path[0] == '/' ? strikesPath(call, path) : strikesFile(call, from);
}

/// GLib ends the program on purpose when there is no memory: what it asks for is not counted.
bool strikesMemory(void* caller) {
    Dl_info place{};
    return watches("malloc") &&
           (::dladdr(caller, &place) == 0 || std::strstr(place.dli_fname, "libglib-") == nullptr) &&
           strikes("malloc");
}

template <typename Function>
Function* next(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

int openPath(int from, const char* path, int flags, va_list rest) {
    const int mode = (flags & O_CREAT) != 0 ? va_arg(rest, int) : 0;
    va_end(rest);
    return strikesAt("open", from, path) ? -1 : raw(SYS_openat, from, path, flags, mode);
}

/// A read or write of a file, whole, in half or not at all.
template <typename Bytes, typename... Offset>
ssize_t transfer(const char* call, long number, int file, Bytes bytes, std::size_t count,
                 Offset... offset) {
    const bool struck = strikesFile(call, file);
    if (struck && error != kHalf)
        return -1;
    return ::syscall(number, file, bytes, struck ? (count + 1) / 2 : count, offset...);
}

int (*programMain)(int, char**, char**) = nullptr;

int watchedMain(int count, char** arguments, char** environment) {
    armed = std::sscanf(std::getenv(kFaultVariable), "%15s %d %d %4095s", kind, &at, &error,
                        folder) == 4;
    const int status = programMain(count, arguments, environment);
    armed = false;
    return status;
}

}  // namespace

extern "C" {

int __libc_start_main(int (*main)(int, char**, char**), int count, char** arguments, void* init,
                      void* fini, void* loaderFini, void* stackEnd) {
    programMain = main;
    return next<decltype(__libc_start_main)>("__libc_start_main")(watchedMain, count, arguments,
                                                                  init, fini, loaderFini, stackEnd);
}

int stat(const char* path, struct stat* status) noexcept {
    return ::fstatat(AT_FDCWD, path, status, 0);
}
int lstat(const char* path, struct stat* status) noexcept {
    return ::fstatat(AT_FDCWD, path, status, AT_SYMLINK_NOFOLLOW);
}
int fstatat(int from, const char* path, struct stat* status, int flags) noexcept {
    return strikesAt("stat", from, path) ? -1 : raw(SYS_newfstatat, from, path, status, flags);
}
int fstat(int file, struct stat* status) noexcept {
    return strikesFile("stat", file) ? -1 : raw(SYS_fstat, file, status);
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
    return strikesPath("open", path) ? nullptr : next<DIR*(const char*)>("opendir")(path);
}
dirent* readdir(DIR* folderStream) {
    return strikesFile("read", ::dirfd(folderStream)) && error != kHalf
               ? nullptr
               : next<dirent*(DIR*)>("readdir")(folderStream);
}
ssize_t read(int file, void* bytes, std::size_t count) {
    return transfer("read", SYS_read, file, bytes, count);
}
ssize_t pread(int file, void* bytes, std::size_t count, off_t offset) {
    return transfer("read", SYS_pread64, file, bytes, count, offset);
}
ssize_t write(int file, const void* bytes, std::size_t count) {
    return transfer("write", SYS_write, file, bytes, count);
}
int fsync(int file) {
    return strikesFile("fsync", file) ? -1 : raw(SYS_fsync, file);
}
/// The system gives a descriptor back even if it reports a failure.
int close(int file) {
    const bool failed = strikesFile("close", file);
    const int result = raw(SYS_close, file);
    return failed ? (errno = error, -1) : result;
}
int rename(const char* from, const char* to) noexcept {
    return strikesPath("rename", to) ? -1 : raw(SYS_rename, from, to);
}
int mkdir(const char* path, mode_t mode) noexcept {
    return strikesPath("mkdir", path) ? -1 : raw(SYS_mkdir, path, mode);
}
int flock(int file, int operation) noexcept {
    return strikesFile("flock", file) ? -1 : raw(SYS_flock, file, operation);
}
int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*run)(void*),
                   void* argument) noexcept {
    return strikes("thread") ? error
                             : next<decltype(pthread_create)>("pthread_create")(thread, attributes,
                                                                                run, argument);
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
