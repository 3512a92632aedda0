#pragma once
// Late-bound calls to an automation object: members by name, faults as `Error`.

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
/// Without it, a literal would be taken for a truth value.
Variant variantOf(const char* utf8);
/// Stands in the place of an optional argument that is not given.
Variant leftOut();

/// The object in a variant; none for Nothing, and for a variant that holds no object at all.
ComPtr<IDispatch> objectIn(const VARIANT& value);

/// The ids of members, each asked for once per kind of object: asking anew at every call would
/// double the calls that a scan makes.
class MemberIds {
 public:
    DISPID find(IDispatch& object, const char* kind, const char* member);

 private:
    std::map<std::pair<std::string, std::string>, DISPID, std::less<>> ids_;
};

/// An automation object, never null. A fault of the source is an `Error` with the source's own
/// text, and so are a member that the object lacks and a value of the wrong type.
class Dispatch {
 public:
    using Arguments = std::vector<Variant>;

    /// `kind` says what the object is, with its article ("a folder"): objects of one kind share
    /// their member ids, and messages name it.
    Dispatch(ComPtr<IDispatch> object, const char* kind, std::shared_ptr<MemberIds> ids)
        : object_(std::move(object)), kind_(kind), ids_(std::move(ids)) {}

    /// Reads a property or calls a method. Arguments stand in the order of the declaration.
    Variant call(const char* member, const Arguments& arguments = {}) const;
    void put(const char* property, const Variant& value) const;

    std::string text(const char* member, const Arguments& arguments = {}) const;
    int number(const char* member) const;
    /// Throws `Error` when there is no such object.
    Dispatch object(const char* member, const char* kind, const Arguments& arguments = {}) const;
    std::optional<Dispatch> objectIfAny(const char* member, const char* kind,
                                        const Arguments& arguments = {}) const;

    /// The same object by another of its interfaces, which must be a dispatch interface as well.
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
