#include "mailstore/joined_session.h"

#include <algorithm>
#include <map>
#include <string>
#include <utility>

namespace pelk {
namespace {

using FolderLists = std::vector<std::unique_ptr<MailFolders>>;

class JoinedFolders : public MailFolders {
 public:
    explicit JoinedFolders(FolderLists lists) : lists_(std::move(lists)) {}

    std::unique_ptr<MailFolder> next() override {
        for (; current_ < lists_.size(); ++current_)
            if (std::unique_ptr<MailFolder> folder = lists_[current_]->next())
                return folder;
        return nullptr;
    }

 private:
    const FolderLists lists_;
    std::size_t current_ = 0;
};

class JoinedSession : public MailSession {
 public:
    explicit JoinedSession(std::vector<std::unique_ptr<MailSession>> sessions)
        : sessions_(std::move(sessions)) {}

    std::unique_ptr<MailFolders> folders() override {
        FolderLists lists;
        for (const auto& session : sessions_)
            lists.push_back(session->folders());
        return std::make_unique<JoinedFolders>(std::move(lists));
    }

    std::vector<DefaultFolder> leftOutFolders() override {
        return sessions_.front()->leftOutFolders();
    }

    bool isDefaultFolder(MailFolder& folder, DefaultFolder kind) override {
        return std::any_of(sessions_.begin(), sessions_.end(), [&](const auto& session) {
            return session->isDefaultFolder(folder, kind);
        });
    }

    std::vector<std::string> ownAddresses() override {
        std::vector<std::string> all;
        for (const auto& session : sessions_)
            for (std::string& address : session->ownAddresses())
                all.push_back(std::move(address));
        return all;
    }

    void setMarks(const std::vector<FolderMark>& marks) override {
        told_ = marks;
        for (const auto& session : sessions_)
            session->setMarks(marks);
    }

    /// Every session returns the marks that it was told, and changes only those of its own folders.
    std::vector<FolderMark> marks() override {
        std::map<std::string, FolderMark> byPlace;
        for (const FolderMark& mark : told_)
            byPlace[mark.place] = mark;
        for (const auto& session : sessions_)
            for (const FolderMark& mark : session->marks())
                if (std::find(told_.begin(), told_.end(), mark) == told_.end())
                    byPlace[mark.place] = mark;
        std::vector<FolderMark> marks;
        marks.reserve(byPlace.size());
        for (const auto& [place, mark] : byPlace)
            marks.push_back(mark);
        return marks;
    }

 private:
    const std::vector<std::unique_ptr<MailSession>> sessions_;
    std::vector<FolderMark> told_;
};

}  // namespace

std::unique_ptr<MailSession> joinSessions(std::vector<std::unique_ptr<MailSession>> sessions) {
    if (sessions.size() == 1)
        return std::move(sessions.front());
    return std::make_unique<JoinedSession>(std::move(sessions));
}

}  // namespace pelk
