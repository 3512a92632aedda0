#include "bench/people.h"

#include <array>

#include "bench/random.h"

namespace pelk {
namespace {

using Names = std::array<const char*, 6>;

struct Script {
    Names given;
    Names family;
};

constexpr Script kScripts[] = {{{"Ann", "Robert", "Carla", "Dennis", "Edith", "Frank"},
                                {"Smith", "Miller", "Baker", "Walker", "O'Neill", "Hill"}},
                               {{"Zoë", "Jörg", "Renée", "Øyvind", "Łucja", "Íñigo"},
                                {"Müller", "Šimek", "Åberg", "Peña", "Þórsson", "Çelik"}},
                               {{"Анна", "Борис", "Вера", "Глеб", "Дарья", "Егор"},
                                {"Соколова", "Попов", "Лебедева", "Козлов", "Новикова", "Морозов"}},
                               {{"Ελένη", "Νίκος", "Μαρία", "Πέτρος", "Σοφία", "Άρης"},
                                {"Δήμου", "Λάμπρου", "Κώστα", "Ράπτης", "Βλάχου", "Μελάς"}},
                               {{"花子", "太郎", "美咲", "健一", "さくら", "翔"},
                                {"山田", "佐藤", "鈴木", "高橋", "田中", "伊藤"}},
                               {{"ليلى", "عمر", "سلمى", "كريم", "نور", "يوسف"},
                                {"حداد", "منصور", "نجار", "خليل", "صباغ", "سالم"}}};

constexpr std::array<const char*, 5> kEndings = {"example", "example.com", "example.org",
                                                 "example.net", "test"};

/// Draws a script: 60 % of the names are ASCII.
const Script& drawScript(Random& random) {
    return kScripts[random.chance(0.6) ? 0 : 1 + random.below(std::size(kScripts) - 1)];
}

}  // namespace

Person makePerson(std::size_t number) {
    Random random(number);
    const Script& script = drawScript(random);
    const std::string given = script.given[random.below(script.given.size())];
    const std::string family = script.family[random.below(script.family.size())];
    const std::string mailName = kScripts[0].given[random.below(kScripts[0].given.size())];
    std::string address = mailName + std::to_string(number) + "@firm" +
                          std::to_string(random.rank(2000)) + '.' +
                          kEndings[random.rank(kEndings.size())];
    address.front() = static_cast<char>(address.front() - 'A' + 'a');
    return {given + ' ' + family, address};
}

}  // namespace pelk
