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
#include <cstdlib>
#include <cstring>

#include "tests/faults/fault_plan.h"

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* old, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
}

namespace {

using namespace pelk;

int calls = 0;
long at = 0;
int error = 0;
int report = -1;
const char* folder = "";
/// From the start of main to its end.
bool armed = false;
long counted = 0;

void readPlan() {
    char* text = std::getenv(kFaultVariable);
    if (text == nullptr)
        return;
    calls = static_cast<int>(std::strtol(text, &text, 10));
    at = std::strtol(text, &text, 10);
    error = static_cast<int>(std::strtol(text, &text, 10));
    report = static_cast<int>(std::strtol(text, &text, 10));
    folder = text + 1;
    armed = true;
}

/// Counts a call, and tells whether it is to fail. Sets errno then.
bool strikes(int call) {
    if (!armed || (calls & call) == 0 || __atomic_add_fetch(&counted, 1, __ATOMIC_SEQ_CST) != at)
        return false;
    ::syscall(SYS_write, report, "!", 1);
    if (error == kKill)
        ::syscall(SYS_kill, ::getpid(), SIGKILL);
    errno = error;
    return true;
}

bool strikesPath(int call, const char* path) {
    return armed && std::strncmp(path, folder, std::strlen(folder)) == 0 && strikes(call);
}

bool strikesFile(int call, int descriptor) {
    if (!armed || (calls & call) == 0)
        return false;
    char link[] = "/proc/self/fd/0000000000";
    char* digit = link + 14;
    for (int scale = 1000000000; scale > 0; scale /= 10)
        if (descriptor >= scale || scale == 1)
            *digit++ = static_cast<char>('0' + descriptor / scale % 10);
    *digit = '\0';
    char path[4096];
    const long length = ::syscall(SYS_readlinkat, AT_FDCWD, link, path, sizeof path - 1);
    path[length > 0 ? length : 0] = '\0';
    return strikesPath(call, path);
}

/// GLib ends the program on purpose when there is no memory: its calls are not counted.
bool strikesMemory(void* caller) {
    if (!armed || (calls & kMemory) == 0)
        return false;
    Dl_info place{};
    if (::dladdr(caller, &place) != 0 && std::strstr(place.dli_fname, "libglib-") != nullptr)
        return false;
    return strikes(kMemory);
}

std::size_t halfOf(std::size_t count) {
    return error == kHalf ? (count + 1) / 2 : 0;
}

template <typename Function>
Function* next(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

template <typename... Values>
int system(long number, Values... values) {
    return static_cast<int>(::syscall(number, values...));
}

int statPath(int from, const char* path, struct stat* status, int flags) {
    return strikesPath(kStat, path) ? -1 : system(SYS_newfstatat, from, path, status, flags);
}

int openPath(int from, const char* path, int flags, mode_t mode) {
    return strikesPath(kOpen, path) ? -1 : system(SYS_openat, from, path, flags, mode);
}

/// A read or write of a file, whole, in half or not at all.
template <typename Bytes, typename... Offset>
ssize_t transfer(int kind, long number, int file, Bytes bytes, std::size_t count,
                 Offset... offset) {
    if (strikesFile(kind, file) && (count = halfOf(count)) == 0)
        return -1;
    return ::syscall(number, file, bytes, count, offset...);
}

int (*programMain)(int, char**, char**) = nullptr;

int watchedMain(int count, char** arguments, char** environment) {
    readPlan();
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
    return strikesFile(kStat, file) ? -1 : system(SYS_fstat, file, status);
}
int fstat64(int file, struct stat64* status) noexcept {
    return strikesFile(kStat, file) ? -1 : system(SYS_fstat, file, status);
}
int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const int mode = (flags & O_CREAT) != 0 ? va_arg(rest, int) : 0;
    va_end(rest);
    return openPath(AT_FDCWD, path, flags, static_cast<mode_t>(mode));
}
int openat(int from, const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const int mode = (flags & O_CREAT) != 0 ? va_arg(rest, int) : 0;
    va_end(rest);
    return openPath(from, path, flags, static_cast<mode_t>(mode));
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
    return strikesFile(kSync, file) ? -1 : system(SYS_fsync, file);
}
/// The system gives a descriptor back even if it reports a failure.
int close(int file) {
    const bool failed = strikesFile(kClose, file);
    const int result = system(SYS_close, file);
    errno = failed ? error : errno;
    return failed ? -1 : result;
}
int rename(const char* from, const char* to) noexcept {
    return strikesPath(kRename, to) ? -1 : system(SYS_rename, from, to);
}
int mkdir(const char* path, mode_t mode) noexcept {
    return strikesPath(kMakeFolder, path) ? -1 : system(SYS_mkdir, path, mode);
}
int flock(int file, int operation) noexcept {
    return strikesFile(kLock, file) ? -1 : system(SYS_flock, file, operation);
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
void* aligned_alloc(std::size_t alignment, std::size_t size) {
    return strikesMemory(__builtin_return_address(0)) ? nullptr : __libc_memalign(alignment, size);
}
}
