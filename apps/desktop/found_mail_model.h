#pragma once
// The mail that was found on this computer as a table with boxes to tick.

#include <QStandardItemModel>
#include <map>
#include <string>
#include <vector>

#include "mailstore/discovery/mail_discovery.h"

namespace pelk {

class FoundMailModel : public QStandardItemModel {
 public:
    enum Column { kProgram, kAccount, kFolders, kSize, kChanged, kPath, kColumnCount };

    FoundMailModel();

    /// Adds a row for each entry that is not a guess. Ticks the row, because most people have one
    /// mail program, unless a row above has the same address: its mail would count twice.
    void list(const MailList& mail);
    /// Fills in the row of the entry `index`, or adds one if the entry is a guess that proved
    /// right. Unticks what cannot be read, or is empty.
    void fill(std::size_t index, const MailExtent& extent);

    /// Returns the paths of the ticked rows in order.
    std::vector<std::string> ticked() const;
    /// Returns the path of a row; empty if its mail cannot be read.
    std::string pathOf(int row) const;
    /// Returns a note for people: the path of a row, and the reason for what cannot be read.
    QString noteOf(int row) const;

 private:
    struct Row {
        FoundMail mail;
        MailExtent extent;
    };
    void addRow(std::size_t index);
    bool isAddressListed(const std::string& account) const;
    void fillCells(int row);

    MailList mail_;
    std::vector<Row> rows_;
    std::map<std::size_t, int> rowOfIndex_;
};

}  // namespace pelk
