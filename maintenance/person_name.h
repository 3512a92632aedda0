#pragma once
// Names of persons in a form in which they can be compared.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/language.h"

namespace pelk {

/// A name without case, accents, titles and what stands in brackets: "SMITH, Dr. Anné (Sales)" is
/// anne smith. Digraphs that stand for umlauts are one letter, so that "Müller" is "Mueller".
struct PersonName {
    /// From the first name to the surname, at least two. The order may be wrong: only a comma says
    /// that the surname comes first.
    std::vector<std::string> parts;
    /// The generation, such as jr or iii; empty without one.
    std::string generation;

    const std::string& first() const { return parts.front(); }
    const std::string& last() const { return parts.back(); }
    /// Whether both ends are more than an initial.
    bool isFull() const;
    /// Both ends in alphabetical order: the same for "Ann M. Smith" and "Smith, Ann".
    std::string key() const;
    /// Of each end as the surname, if it is more than an initial: the initial of the other end, and
    /// the surname. The same for "Ann Smith" and "A. Smith".
    std::vector<std::string> initialKeys() const;
    /// The name as it is written in one word before the "@": asmith, annsmith, smitha.
    std::vector<std::string> compactForms() const;
};

/// Reads the name that a mail program shows. Returns nothing for an address, a single word, a name
/// of two persons ("Ann and Bob Smith") or of an office ("Customer Service").
std::optional<PersonName> readPersonName(std::string_view text, const Language& language);

/// Returns the word without accents, and with one letter for each digraph that stands for an
/// umlaut, given folded.
std::string withoutDigraphs(std::string_view word);

/// Reads the part of an address before the "@", given folded: ann.smith. Returns nothing when it is
/// one word.
std::optional<PersonName> readLocalPart(std::string_view local);

/// Whether the part before the "@" of an address, given folded, belongs to an office or a program
/// rather than a person: info, no-reply.
bool isRoleName(std::string_view local);

/// Whether both may be the name of one person: the ends agree, in any order, an initial with a name
/// that begins with it, and so do the middle names that both have.
bool agree(const PersonName& one, const PersonName& other);

}  // namespace pelk
