#pragma once
// Late-bound calls to an automation object: members by name, failures as `Error`.

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/error.h"
#include "platform/windows/com.h"

namespace pelk {

Variant variantOf(int value);
Variant variantOf(bool value);
Variant variantOf(std::string_view utf8);
/// Without this overload, a literal would convert to bool.
Variant variantOf(const char* utf8);
/// Returns the value for an optional argument that is omitted.
Variant leftOut();

/// Returns the object in a variant; null for Nothing and for a variant without an object.
ComPtr<IDispatch> objectIn(const VARIANT& value);

/// Caches the ids of members per kind of object; asking at every call would double the calls of a
/// scan.
class MemberIds {
 public:
    DISPID find(IDispatch& object, const char* kind, const char* member);

 private:
    std::map<std::pair<std::string, std::string>, DISPID, std::less<>> ids_;
};

/// An automation object, never null. Throws `Error` with the source's own text when the source
/// fails, and when a member is missing or has the wrong type.
class Dispatch {
 public:
    using Arguments = std::vector<Variant>;

    /// `kind` names the object with its article ("a folder") in messages. Objects of one kind share
    /// their member ids.
    Dispatch(ComPtr<IDispatch> object, const char* kind, std::shared_ptr<MemberIds> ids)
        : object_(std::move(object)), kind_(kind), ids_(std::move(ids)) {}

    /// Reads a property or calls a method. Arguments are in the order of the declaration.
    Variant call(const char* member, const Arguments& arguments = {}) const;
    void put(const char* property, const Variant& value) const;

    std::string text(const char* member, const Arguments& arguments = {}) const;
    int number(const char* member) const;
    /// Throws `Error` when there is no such object.
    Dispatch object(const char* member, const char* kind, const Arguments& arguments = {}) const;
    std::optional<Dispatch> objectIfAny(const char* member, const char* kind,
                                        const Arguments& arguments = {}) const;

    /// Queries another dispatch interface of the object.
    std::optional<Dispatch> narrowed(const IID& iid) const;
    template <typename Interface>
    ComPtr<Interface> query(const IID& iid) const {
        return object_.query<Interface>(iid);
    }

 private:
    Variant invoke(const char* member, WORD flags, DISPPARAMS& parameters) const;
    std::string describe(const char* member) const;

    ComPtr<IDispatch> object_;
    const char* kind_;
    std::shared_ptr<MemberIds> ids_;
};

}  // namespace pelk
