#include "scan/store_sample.h"

namespace pelk {
namespace {

class SampleWalk {
 public:
    explicit SampleWalk(MailSession& session) : session_(session) {}

    void walk(MailFolder& folder) {
        attempt([&] {
            if (folder.holdsMail() && !isLeftOut(session_, folder, [](const Error&) {}))
                walkItems(folder);
        });
        attempt([&] {
            const std::unique_ptr<MailFolders> inside = folder.folders();
            while (const auto next = isFull() ? nullptr : inside->next())
                walk(*next);
        });
    }

    std::vector<std::uint64_t> sample;

 private:
    /// Runs the step, and retries it once: a transient error must not make a moved store look like
    /// a new one. The scan reports a permanent error when it reaches the same step.
    template <typename Step>
    void attempt(const Step& step) {
        const std::size_t before = sample.size();
        for (int times = 0; times < 2; ++times) {
            try {
                step();
                return;
            } catch (const Error&) {
                sample.resize(before);
            }
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
