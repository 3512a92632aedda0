#pragma once
// Files that exist only while the program uses them.

#include <string>
#include <string_view>

namespace pelk {

/// Returns the directory for temporary files: $TMPDIR, else /var/tmp, because /tmp is often kept in
/// memory and mail may be larger than that. Without a usable /var/tmp it is /tmp.
std::string temporaryDirectory();

/// Creates a file without a name in that directory, so that nothing remains when the program ends
/// in any way. Returns its descriptor, or -1 with the reason in `errno`.
int openTemporaryFile();

/// Writes all of `content` to the file `descriptor`. Returns false if that fails, with the reason
/// in `errno`.
bool writeAll(int descriptor, std::string_view content);

/// A new directory that only the user may enter. Its destructor removes it with its content. It
/// remains if a signal ends the program, so it should exist only for a moment.
class TemporaryDirectory {
 public:
    /// Throws an `Error` if it cannot be created.
    TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
    ~TemporaryDirectory();

    const std::string& path() const { return path_; }

 private:
    std::string path_;
};

}  // namespace pelk
