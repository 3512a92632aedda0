#pragma once
// What the mail window shows while no mail is open: the mail on this computer, to choose from.

#include <QLabel>
#include <QPushButton>
#include <QTreeView>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "apps/desktop/found_mail_model.h"
#include "apps/desktop/mail_finder.h"
#include "platform/dialogs.h"

namespace pelk {

/// What the buttons of the page do. A button for which there is nothing is not there.
struct FirstPageActs {
    std::function<void(const std::vector<std::string>&)> open;
    std::function<void()> openFolder;
    std::function<void()> openFile;
    std::function<void()> addServer;
    std::function<void()> showExample;
};

class FirstPage : public QWidget {
 public:
    /// Looks for mail in these places while it is shown. Whatever an act throws is shown by
    /// `dialogs`. The page must live until an act has ended.
    FirstPage(const UserPlaces& places, FirstPageActs acts, Dialogs& dialogs);

 private:
    QWidget* makeTable();
    QWidget* makeButtons();
    QPushButton* addButton(QWidget& row, const QString& caption, const std::function<void()>& act);
    void fitColumns();
    void showNote(const QModelIndex& index);
    void showState();
    void run(const std::function<void()>& act);

    const FirstPageActs acts_;
    Dialogs& dialogs_;
    FoundMailModel model_;
    QTreeView* view_;
    QLabel* state_;
    QLabel* note_;
    QPushButton* open_ = nullptr;
    bool isDone_ = false;
    QString fault_;
    MailFinder finder_;
};

}  // namespace pelk
