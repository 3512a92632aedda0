#pragma once
// The page of the mail window while no mail is open: a list of the mail on this computer.

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

/// The actions of the buttons. A button without an action is left out.
struct FirstPageActs {
    std::function<void(const std::vector<std::string>&)> open;
    std::function<void()> openFolder;
    std::function<void()> openFile;
    std::function<void()> addServer;
    std::function<void()> showExample;
};

class FirstPage : public QWidget {
 public:
    /// Searches these places for mail while the page is shown. `dialogs` shows the exceptions of
    /// actions. The page must outlive a running action.
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
