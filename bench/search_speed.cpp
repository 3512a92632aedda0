// Compares the speed of searches, of a refresh and of undo on the largest database with Qt's way to
// do the like. Usage: search_speed FOLDER, which will hold a database.

#include <QSortFilterProxyModel>
#include <QStringListModel>
#include <QTreeView>

#include "bench/large_database.h"
#include "bench/measure.h"
#include "bench/opening.h"
#include "bench/plain_view.h"
#include "bench/random.h"
#include "bench/settled.h"
#include "bench/silent_dialogs.h"
#include "links/ShowFindFormDomains.h"
#include "maintenance/contact_edits.h"
#include "maintenance/undo.h"
#include "platform/desktop/qt/display.h"
#include "platform/desktop/qt/picture_output.h"
#include "platform/desktop/qt/toolkit.h"
#include "views/ShowForm.h"

namespace pelk {
namespace {

/// As many as one real archive gave.
constexpr std::size_t kChains = 117450;

/// Qt's tree view over a list of texts, which it filters itself.
class FilteredView {
 public:
    explicit FilteredView(const QStringList& texts) : list_(texts) {
        filter_.setSourceModel(&list_);
        filter_.setFilterCaseSensitivity(Qt::CaseInsensitive);
        view_.setHeaderHidden(true);
        view_.setUniformRowHeights(true);
        view_.setModel(&filter_);
        view_.resize(440, 400);
        view_.show();
    }
    void search(const QString& text) { filter_.setFilterFixedString(text); }

 private:
    QStringListModel list_;
    QSortFilterProxyModel filter_;
    QTreeView view_;
};

/// Types a text into the box with one key.
void type(TextBox& box, const std::string& text) {
    box.setText(text);
    box.onChange();
}

/// Returns chains of five contacts, many of which start at the same one.
std::vector<LinkChain> makeChains() {
    Random random;
    std::vector<LinkChain> chains(kChains);
    for (std::size_t chain = 0; chain < kChains; ++chain) {
        chains[chain].cost = static_cast<int>(100 + random.below(1000));
        chains[chain].ids = {static_cast<int>(1 + chain / 400)};
        for (int step = 0; step < 4; ++step)
            chains[chain].ids.push_back(static_cast<int>(1 + random.below(kMostContacts)));
    }
    return chains;
}

class SearchSpeed {
 public:
    explicit SearchSpeed(const std::string& folder)
        : store_(folder), toolkit_(dialogs_, store_.desktop.language()) {
        database_ = store_.storage.loadDatabase().database;
        database_->forEachContact([this](const Contact& contact) {
            texts_.append(QString::fromStdString(contact.name + " " + contact.addresses.front()));
        });
    }

    void measureAll() {
        compareContacts();
        compareChains();
        compareUndo();
    }

 private:
    void compareContacts() {
        ShowForm form(UserInterface{toolkit_, dialogs_, display_, settings_, pictures_},
                      store_.platform.language);
        form.database = database_.get();
        form.startShowing();
        form.show();
        FilteredView plain(texts_);
        const Work filtered = {[&] { plain.search("an"); }, [&] { plain.search(""), settle(); }};
        compare("A key in the search of 32,767 contacts",
                {[&] { type(form.search.box, "an"); }, [&] { type(form.search.box, "a"); }},
                "the toolkit's filtered list", filtered, 1);
        const auto change = [&] {
            database_->renameContact(1, database_->nameOf(1) == "A" ? "B" : "A");
            form.search.clear();
        };
        compare("The first key after a change of the database",
                {[&] { type(form.search.box, "an"); }, change}, "the toolkit's filtered list",
                filtered);
        for (int row = 0; row < 2000; ++row)
            expand(form, row * 16);
        settle();
        compare("Refresh with 2,000 contacts expanded", {[&] { form.refreshButton.onClick(); }},
                "the toolkit's list", {[&] { plain.search("an"), plain.search(""); }}, 0);
    }

    void expand(ShowForm& form, int row) {
        TreeNode& node = *form.presTree.model().root().children()[static_cast<std::size_t>(row)];
        form.presTree.onExpand(node);
        form.presTree.setExpanded(node, true);
    }

    void compareChains() {
        ShowFindFormDomains form(toolkit_, store_.platform.language);
        form.db = database_.get();
        form.fill(makeChains());
        form.show();
        QStringList chains;
        for (const LinkChain& chain : makeChains()) {
            QString text;
            for (const int id : chain.ids)
                text += texts_[id - 1];
            chains.append(text);
        }
        FilteredView plain(chains);
        for (const auto& [before, query] : {std::pair("", "a"), std::pair("a", "an")})
            compare(std::string("The key ") + query + " in the filter of 117,450 chains",
                    {[&, text = query] { type(form.search.box, text); },
                     [&, text = before] { type(form.search.box, text), settle(); }},
                    "the toolkit's filtered list",
                    {[&, text = query] { plain.search(text); },
                     [&, text = before] { plain.search(text), settle(); }},
                    1);
    }

    void compareUndo() {
        const BareOpening bare(database_->xml());
        compare("Undo of a deletion, with the save",
                {[&] { undoStep(*database_, store_.storage); },
                 [&] { deleteContacts(*database_, store_.storage, {7}, "seven"); }},
                "decrypting and pugixml alone", {[&] { bare.run(); }}, 4);
    }

    LargeStore store_;
    SilentDialogs dialogs_;
    QtToolkit toolkit_;
    QtDisplay display_;
    ForgetfulSettings settings_;
    QtPictureOutput pictures_;
    std::unique_ptr<Database> database_;
    QStringList texts_;
};

}  // namespace
}  // namespace pelk

int main(int argc, char** argv) {
    return pelk::measureWindows<pelk::SearchSpeed>(argc, argv, "search_speed");
}
