#pragma once
// The steps of the user that can be undone and redone.
//
// All edits of a document go through its journal. Within a step, the journal keeps what it takes to
// revert each edit; an edit outside of a step ends the history, because earlier steps no longer fit
// the document. Not thread-safe.

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "db/edit.h"

namespace pelk {

class Journal {
 public:
    /// The number of steps that are kept. Beyond it, the oldest is forgotten.
    static constexpr std::size_t kSteps = 50;

    /// Edits the document. `name` is a literal. `noteAdded` is called after an element of the
    /// document was created with everything below it.
    void setAttribute(const XmlElement& element, const char* name, const std::string& value);
    void noteAdded(const Content& content, const XmlElement& element);
    void remove(const Content& content, const XmlElement& element);
    void replace(Content& content, Content&& other);
    /// Runs `swap`, which changes something beside the document, see `OutsideEdit`.
    void changeOutside(const std::function<void()>& swap);

    /// Runs `edits` as one step, which becomes the last one unless it changes nothing. When `edits`
    /// throws, reverts them and passes the exception on. Within another step, the edits belong to
    /// that one.
    void inStep(const std::string& name, Content& content, const std::function<void()>& edits);

    /// Return the name of the step that would be undone or redone; empty when there is none.
    std::string undoName() const { return done_.empty() ? "" : done_.back().name; }
    std::string redoName() const { return undone_.empty() ? "" : undone_.back().name; }
    /// Undo or redo one step. Return false when there is none. When they throw, nothing has changed
    /// except in a shortage of memory that also prevents going back.
    bool undo(Content& content) { return moveStep(done_, undone_, content); }
    bool redo(Content& content) { return moveStep(undone_, done_, content); }

    /// Forgets all steps.
    void forget();

 private:
    struct Step {
        std::string name;
        std::vector<Edit> edits;
        bool isDone = true;
    };

    static bool moveStep(std::vector<Step>& from, std::vector<Step>& to, Content& content);
    static void toggle(Step& step, Content& content);
    void end() noexcept;

    std::optional<Step> open_;
    /// The last step is the next one to undo, or to redo.
    std::vector<Step> done_;
    std::vector<Step> undone_;
};

}  // namespace pelk
