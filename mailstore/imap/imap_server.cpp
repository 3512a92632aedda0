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
        connection_ = std::make_unique<ImapConnection>(account_, *secret_, options_.limit);
        wasConnected_ = true;
    } catch (const ConnectionLost&) {
        throw;
    } catch (const BrokenAnswer& broken) {
        throw ConnectionLost(broken.what());
    } catch (const Error& refused) {
        // Who asks again and again with a password that is wrong gets the account locked.
        down_ = refused.what();
        throw;
    }
}

/// A server that has not been reached once is told of at once: the address may be wrong.
void ImapServer::noteLost(const ConnectionLost& lost, int tries) {
    connection_.reset();
    if (tries >= kTries || !wasConnected_) {
        down_ = lost.what();
        throw Error(down_);
    }
    std::this_thread::sleep_for(options_.pause * tries);
}

/// An answer that cannot be read may be about one broken message. A server that gives many of them
/// has to be left alone.
void ImapServer::noteBroken(const BrokenAnswer& broken, int tries) {
    constexpr int kMostBroken = 10;
    connection_.reset();
    if (tries < kTries)
        return;
    if (++broken_ >= kMostBroken)
        down_ = broken.what();
    throw Error(broken.what());
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
        throw Error("The mail server has numbered the messages of a folder anew.");
    mailbox_ = mailbox;
}

}  // namespace pelk
