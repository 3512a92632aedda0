#include "mailstore/imap/imap_server.h"

#include <openssl/crypto.h>

#include <thread>

namespace pelk {

ImapServer::~ImapServer() {
    if (secret_)
        OPENSSL_cleanse(secret_->data(), secret_->size());
}

void ImapServer::connect() {
    if (!down_.empty())
        throw Error(down_);
    if (connection_)
        return;
    mailbox_.clear();
    try {
        if (!secret_)
            secret_ = options_.secret();
        connection_ = std::make_unique<ImapConnection>(account_, *secret_, options_.patience);
        wasConnected_ = true;
    } catch (const ConnectionLost&) {
        throw;
    } catch (const BrokenAnswer& broken) {
        throw ConnectionLost(broken.what());
    } catch (const Error& refused) {
        // A server may lock the account after several wrong passwords, so none is tried twice.
        down_ = refused.what();
        throw;
    }
}

/// Does not retry before the first successful connection: the address may be wrong.
void ImapServer::noteLost(const ConnectionLost& lost, int tries) {
    connection_.reset();
    if (tries >= kTries || !wasConnected_) {
        down_ = lost.what();
        throw Error(down_);
    }
    std::this_thread::sleep_for(options_.pause * tries);
}

/// A single broken message may cause such an answer. After many of them, the server itself must be
/// broken, and more requests would only waste time.
void ImapServer::noteBroken(const BrokenAnswer& broken, int tries) {
    constexpr int kMostBroken = 10;
    connection_.reset();
    if (tries < kTries)
        return;
    if (++broken_ >= kMostBroken)
        down_ = broken.what();
    throw Error(broken.what());
}

void ImapServer::noteCancelled(const Cancelled& cancelled) {
    connection_.reset();
    down_ = cancelled.what();
}

std::unique_lock<std::mutex> ImapServer::lock() {
    constexpr std::chrono::milliseconds kBetweenTries{10};
    const Wait wait(options_.patience);
    std::unique_lock guard(inUse_, std::try_to_lock);
    while (!guard.owns_lock()) {
        wait.requireGoingOn();
        std::this_thread::sleep_for(kBetweenTries);
        guard.try_lock();
    }
    return guard;
}

ExaminedMailbox ImapServer::examine(const std::string& mailbox) {
    return with([&](ImapConnection& connection) {
        mailbox_.clear();
        const ExaminedMailbox examined = connection.examine(mailbox);
        mailbox_ = mailbox;
        return examined;
    });
}

void ImapServer::enter(ImapConnection& connection, const std::string& mailbox,
                       std::uint32_t uidValidity) {
    if (mailbox_ == mailbox)
        return;
    mailbox_.clear();
    if (connection.examine(mailbox).uidValidity != uidValidity)
        throw Error("The mail server has renumbered the messages of a folder.");
    mailbox_ = mailbox;
}

}  // namespace pelk
