// Compares the speed of the relations view on the largest database with Qt's cheapest way to show
// as many rows. Usage: view_speed FOLDER, which will hold a database.

#include <algorithm>
#include <pugixml.hpp>

#include "bench/large_database.h"
#include "bench/measure.h"
#include "bench/opening.h"
#include "bench/plain_view.h"
#include "bench/settled.h"
#include "bench/silent_dialogs.h"
#include "platform/desktop/qt/display.h"
#include "platform/desktop/qt/picture_output.h"
#include "platform/desktop/qt/toolkit.h"
#include "views/ShowForm.h"

namespace pelk {
namespace {

/// Reads the names of a contact's related contacts, in the order of the relations, with pugixml
/// only.
class BareNames {
 public:
    BareNames(const Database& database, int contactId) : contacts_(kMostContacts + 1) {
        document_.load_string(database.xml().c_str());
        for (const pugi::xml_node contact : document_.document_element().child("contacts"))
            contacts_[contact.attribute("id").as_uint()] = contact;
        for (const Relation& relation : database.relationsOf(contactId))
            ids_.push_back(static_cast<std::size_t>(relation.partnerOf(contactId)));
    }
    QStringList read() const {
        QStringList names;
        for (const std::size_t id : ids_)
            names.append(QString::fromUtf8(contacts_[id].attribute("name").value()));
        return names;
    }

 private:
    pugi::xml_document document_;
    std::vector<pugi::xml_node> contacts_;
    std::vector<std::size_t> ids_;
};

class ViewSpeed {
 public:
    explicit ViewSpeed(const std::string& folder)
        : store_(folder), toolkit_(dialogs_, store_.desktop.language()) {
        openView();
    }

    void measureAll() {
        compareOpening();
        const TreeModel& tree = form_->presTree.model();
        for (const TreeNode* node : tree.root().children())
            texts_.push_back(node->text());
        compareFilling();
        compareGoTo();
        compareContact();
        compareDomain();
    }

 private:
    void closeView() {
        form_.reset();
        database_.reset();
        giveMemoryBack();
    }
    void openView() {
        database_ = store_.storage.loadDatabase().database;
        form_ = std::make_unique<ShowForm>(
            UserInterface{toolkit_, dialogs_, display_, settings_, pictures_},
            store_.platform.language);
        form_->database = database_.get();
        form_->startShowing();
        form_->show();
    }
    QTreeView& nativeTree() {
        for (QWidget* const widget : QApplication::topLevelWidgets())
            if (QTreeView* const tree = widget->findChild<QTreeView*>())
                return *tree;
        std::abort();
    }
    TreeNode& nodeOf(const std::string& key) { return *form_->presTree.model().find(key); }

    void compareOpening() {
        const BareOpening bare(database_->xml());
        compare("Opening it up to the relations view on the screen",
                {[&] { openView(); }, [&] { closeView(); }}, "decrypting and pugixml alone",
                {[&] { bare.run(); }, giveMemoryBack}, 2);
    }

    void compareFilling() {
        PlainView plain;
        compare("Filling the view with 32,767 contacts, sorted", {[&] { form_->fillTree(); }},
                "the toolkit's list", {[&] { plain.fill(texts_); }});
        compare("Refresh", {[&] { form_->refreshButton.onClick(); }}, "the toolkit's list",
                {[&] { plain.fill(texts_); }});
        QStringList list;
        for (const std::string& text : texts_)
            list.append(QString::fromStdString(text));
        TreeModel& tree = form_->presTree.model();
        compare("Sorting", {[&] { tree.sortChildren(tree.root()); }}, "QCollator's sort keys",
                {[&] { sortedTexts(list); }});
    }

    /// Searches for a row that does not exist, so that all are visited.
    void compareGoTo() {
        dialogs_.answer = "zzz";
        const QString start = "zzz";
        const auto startsSo = [&](const std::string& text) {
            return QString::fromStdString(text).startsWith(start, Qt::CaseInsensitive);
        };
        compare("GoTo past all 32,767 contacts", {[&] { form_->gotoButton.onClick(); }},
                "a loop over as many texts",
                {[&] { std::find_if(texts_.begin(), texts_.end(), startsSo); }});
    }

    QStringList textsBelow(const TreeNode& node) const {
        QStringList texts;
        for (const TreeNode* below : node.children())
            texts.append(QString::fromStdString(below->text()));
        return texts;
    }

    /// Expands the node as a click on its expander does.
    void compareExpansion(const std::string& what, const std::string& key, const std::string& other,
                          const std::function<QStringList()>& texts) {
        QTreeView& view = nativeTree();
        const auto ownIndex = [&] { return view.model()->index(nodeOf(key).row(), 0); };
        view.expand(ownIndex());
        const QStringList below = textsBelow(nodeOf(key));
        const QStringList top = textsBelow(form_->presTree.model().root());
        std::unique_ptr<PlainTree> model;
        QTreeView plain;
        plain.setHeaderHidden(true);
        plain.setUniformRowHeights(true);
        plain.resize(440, 400);
        plain.show();
        compare(what + " (" + std::to_string(below.size()) + " rows)",
                {[&] { view.expand(ownIndex()); }, [&] { view.collapse(ownIndex()), settle(); }},
                other,
                {[&] {
                     model->addRowsBelow(texts ? texts() : below);
                     plain.expand(model->index(0, 0, {}));
                 },
                 [&] {
                     auto fresh = std::make_unique<PlainTree>(top);
                     plain.setModel(fresh.get());
                     model = std::move(fresh);
                     settle();
                 }});
        plain.setModel(nullptr);
    }

    void compareContact() {
        compareExpansion("Expanding the best-connected contact", "contact1", "the toolkit's tree",
                         {});
        const BareNames names(*database_, 1);
        compareExpansion("The same", "contact1", "the toolkit's tree, with names out of pugixml",
                         [&] { return names.read(); });
    }

    void compareDomain() {
        form_->domainsRadio.onClick();
        settle();
        compareExpansion("Expanding the largest top-level domain", "example", "the toolkit's tree",
                         {});
    }

    LargeStore store_;
    SilentDialogs dialogs_;
    QtToolkit toolkit_;
    QtDisplay display_;
    ForgetfulSettings settings_;
    QtPictureOutput pictures_;
    std::unique_ptr<Database> database_;
    std::unique_ptr<ShowForm> form_;
    std::vector<std::string> texts_;
};

}  // namespace
}  // namespace pelk

int main(int argc, char** argv) {
    return pelk::measureWindows<pelk::ViewSpeed>(argc, argv, "view_speed");
}
