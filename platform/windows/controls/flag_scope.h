#pragma once
// Sets a flag for the duration of a scope.

namespace pelk {

/// Sets the flag, and restores its previous value.
class FlagScope {
 public:
    explicit FlagScope(bool& flag) : flag_(flag), before_(flag) { flag = true; }
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;
    ~FlagScope() { flag_ = before_; }

 private:
    bool& flag_;
    bool before_;
};

}  // namespace pelk
