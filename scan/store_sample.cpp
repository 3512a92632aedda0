#include "scan/store_sample.h"

namespace pelk {
namespace {

class SampleWalk {
 public:
    explicit SampleWalk(MailSession& session) : session_(session) {}

    void walk(MailFolder& folder) {
        attempt([&] {
            if (folder.defaultItemType() == kMailItemType &&
                !isLeftOut(session_, folder, [](const Error&) {}))
                walkItems(folder);
        });
        attempt([&] {
            const std::unique_ptr<MailFolders> inside = folder.folders();
            for (auto next = inside->first(); next && !isFull(); next = inside->next())
                walk(*next);
        });
    }

    std::vector<std::uint64_t> sample;

 private:
    template <typename Step>
    static void attempt(const Step& step) {
        try {
            step();
        } catch (const Error&) {
            // The scan itself meets the fault again, and reports it.
        }
    }

    bool isFull() const { return sample.size() == kSampleSize; }

    void walkItems(MailFolder& folder) {
        const int count = folder.itemCount();
        for (int index = 1; index <= count && !isFull(); ++index)
            attempt([&] {
                if (const std::uint64_t print = folder.mailItem(index)->fingerprint())
                    sample.push_back(print);
            });
    }

    MailSession& session_;
};

}  // namespace

std::vector<std::uint64_t> takeSample(MailSession& session, MailFolder& store) {
    SampleWalk walk(session);
    walk.walk(store);
    return std::move(walk.sample);
}

}  // namespace pelk
