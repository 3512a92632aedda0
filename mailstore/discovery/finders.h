#pragma once
// Where each mail program keeps its mail. Each function returns the mail of one program in the
// order in which the program lists its accounts. It looks only at the given places, reads settings,
// lists directories, and changes nothing. It does not throw an `Error`: settings that cannot be
// read become an entry that says so. Any thread may call it.

#include "mailstore/discovery/found_mail.h"
#include "mailstore/discovery/user_places.h"

namespace pelk {

/// Finds the mail of Thunderbird and of programs built from its sources.
MailList findThunderbirdMail(const UserPlaces& places);
MailList findEvolutionMail(const UserPlaces& places);
/// Finds the mail of KMail and Kontact, which Akonadi fetches and keeps.
MailList findKMailMail(const UserPlaces& places);
MailList findGearyMail(const UserPlaces& places);
/// Finds the mail of Apple Mail in a home directory copied from a Mac.
MailList findAppleMail(const UserPlaces& places);
/// Finds mail in the usual places of terminal programs and of the system.
MailList findPlainMail(const UserPlaces& places);

}  // namespace pelk
