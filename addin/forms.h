#pragma once
// The forms of the program: one of each, created on first use.

#include <memory>

#include "addin/aboutForm.h"
#include "scan/ParseForm.h"
#include "views/ShowForm.h"

namespace pelk {

class Forms {
 public:
    Forms(Toolkit& toolkit, const Platform& platform, Storage& storage)
        : toolkit_(toolkit), platform_(platform), storage_(storage) {}

    ParseForm& parseForm() { return created(parseForm_, toolkit_, platform_, storage_); }
    ShowForm& showForm() { return created(showForm_, toolkit_, platform_); }
    aboutForm& about() { return created(about_, toolkit_); }

    /// Destroys every form that was created, with its window.
    void unload() {
        about_.reset();
        showForm_.reset();
        parseForm_.reset();
    }

 private:
    template <typename Form, typename... Arguments>
    static Form& created(std::unique_ptr<Form>& form, Arguments&... arguments) {
        if (!form)
            form = std::make_unique<Form>(arguments...);
        return *form;
    }

    Toolkit& toolkit_;
    Platform platform_;
    Storage& storage_;
    std::unique_ptr<ParseForm> parseForm_;
    std::unique_ptr<ShowForm> showForm_;
    std::unique_ptr<aboutForm> about_;
};

}  // namespace pelk
