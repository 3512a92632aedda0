#pragma once
// Where each mail program keeps its mail. Each function returns the mail of one program in the
// order in which the program lists its accounts. It looks only at the given places, reads settings,
// lists directories, and changes nothing. It does not throw an `Error`: settings that cannot be
// read become an entry that says so. Any thread may call it.

#include "mailstore/discovery/found_mail.h"
#include "mailstore/discovery/user_places.h"

namespace pelk {

/// Thunderbird and those that are built from its sources.
MailList findThunderbirdMail(const UserPlaces& places);
MailList findEvolutionMail(const UserPlaces& places);
/// KMail and Kontact, which have Akonadi fetch and keep their mail.
MailList findKMailMail(const UserPlaces& places);
MailList findGearyMail(const UserPlaces& places);
/// In a home that was copied from a Mac.
MailList findAppleMail(const UserPlaces& places);
/// Where programs of the terminal, and the system, usually keep mail.
MailList findPlainMail(const UserPlaces& places);

}  // namespace pelk
