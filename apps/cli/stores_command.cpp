#include "apps/cli/stores_command.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <array>
#include <iomanip>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "apps/cli/listing.h"
#include "apps/cli/terminal_line.h"
#include "apps/cli/terminal_text.h"
#include "db/date_stamp.h"
#include "mailstore/discovery/mail_discovery.h"
#include "mailstore/message_time.h"

namespace pelk {
namespace {

struct Store {
    FoundMail mail;
    MailExtent extent;
};

std::vector<Store> findStores() {
    std::vector<Store> stores;
    TerminalLine progress;
    for (FoundMail& mail : findMail(currentUserPlaces())) {
        if (progress.isDue())
            progress.write("looking at " + mail.path);
        MailExtent extent = measureMail(mail, [] { return false; });
        if (!extent.isNothing)
            stores.push_back({std::move(mail), std::move(extent)});
    }
    return stores;
}

/// Returns empty text if the time is unknown.
std::string changedStamp(const MailExtent& extent) {
    const auto time = extent.changed > 0 ? localTime(NotedTime{extent.changed}) : std::nullopt;
    return time ? formatStamp(*time) : "";
}

/// Returns why the mail, or part of it, cannot be read; empty text if all of it can.
std::string faultOf(const MailExtent& extent) {
    if (!extent.fault.empty() || extent.unreadable == 0)
        return extent.fault;
    const std::string more =
        extent.unreadable == 1 ? "" : std::to_string(extent.unreadable) + " folders; the first: ";
    return "Not all can be read. " + more + extent.firstUnreadable;
}

QJsonObject toJson(const Store& store) {
    const auto text = [](const std::string& utf8) { return QString::fromStdString(utf8); };
    QJsonObject object{{"program", text(store.mail.program)},
                       {"account", text(store.mail.account)},
                       {"path", text(store.mail.path)},
                       {"readable", store.extent.fault.empty()},
                       {"folders", static_cast<qint64>(store.extent.folders)},
                       {"bytes", static_cast<qint64>(store.extent.bytes)}};
    if (const std::string changed = changedStamp(store.extent); !changed.empty())
        object.insert("changed", text(changed));
    if (const std::string fault = faultOf(store.extent); !fault.empty())
        object.insert("fault", text(fault));
    return object;
}

std::string sizeText(std::uint64_t bytes) {
    constexpr std::array kUnits{"B", "kB", "MB", "GB", "TB"};
    auto size = static_cast<double>(bytes);
    std::size_t unit = 0;
    for (; size >= 999.5 && unit + 1 < kUnits.size(); ++unit)
        size /= 1000;
    std::ostringstream text;
    text << std::fixed << std::setprecision(unit > 0 && size < 9.95 ? 1 : 0) << size << ' '
         << kUnits[unit];
    return text.str();
}

constexpr std::size_t kColumns = 6;
using Row = std::array<std::string, kColumns>;

Row rowOf(const Store& store) {
    const MailExtent& extent = store.extent;
    if (!extent.fault.empty())
        return {store.mail.program, store.mail.account, "-", "-", "-", store.mail.path};
    return {store.mail.program,
            store.mail.account,
            std::to_string(extent.folders),
            sizeText(extent.bytes),
            changedStamp(extent).substr(0, 10),
            store.mail.path};
}

/// Returns the number of UTF-8 characters.
std::size_t widthOf(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
    }));
}

std::array<std::size_t, kColumns> widthsOf(const std::vector<Row>& rows) {
    std::array<std::size_t, kColumns> widths{};
    for (const Row& row : rows)
        for (std::size_t column = 0; column < kColumns; ++column)
            widths[column] = std::max(widths[column], widthOf(row[column]));
    return widths;
}

/// Numbers are right-aligned; the last column is not padded.
std::string lineOf(const Row& row, const std::array<std::size_t, kColumns>& widths) {
    std::string line;
    for (std::size_t column = 0; column < kColumns; ++column) {
        const std::string blanks(widths[column] - widthOf(row[column]), ' ');
        const bool toTheRight = column == 2 || column == 3;
        line += column > 0 ? "  " : "";
        line += toTheRight ? blanks + row[column] : row[column];
        line += toTheRight || column + 1 == kColumns ? "" : blanks;
    }
    return line;
}

void printTable(const std::vector<Store>& stores) {
    std::vector<Row> rows{{"PROGRAM", "ACCOUNT", "FOLDERS", "SIZE", "CHANGED", "PATH"}};
    for (const Store& store : stores) {
        rows.push_back(rowOf(store));
        for (std::string& cell : rows.back())
            cell = terminalText(cell);
    }
    const std::array<std::size_t, kColumns> widths = widthsOf(rows);
    for (std::size_t row = 0; row < rows.size(); ++row) {
        Line(std::cout) << lineOf(rows[row], widths);
        if (row > 0 && !faultOf(stores[row - 1].extent).empty())
            Line(std::cout) << "    " << faultOf(stores[row - 1].extent);
    }
}

}  // namespace

void storesCommand(CommandRun& run) {
    const std::vector<Store> stores = findStores();
    if (run.arguments().json) {
        QJsonArray array;
        for (const Store& store : stores)
            array.append(toJson(store));
        print(std::cout, QJsonDocument(array));
    } else if (stores.empty()) {
        std::cout << "No mail was found on this computer.\n";
    } else {
        printTable(stores);
    }
}

}  // namespace pelk
