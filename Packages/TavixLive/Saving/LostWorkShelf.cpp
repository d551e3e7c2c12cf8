#include "TavixLive/Saving/LostWorkShelf.h"

#include <utility>

namespace tavix {

void LostWorkShelf::find(const std::filesystem::path& journals, std::function<void()> then) {
    if (journals.empty()) {
        if (then) around_.main.post(lifeline_.guard(std::move(then)));
        return;
    }
    system::runThere(
        around_.files, around_.main, [journals] { return LostWork::find(journals); },
        lifeline_.guard([this, then = std::move(then)](system::Outcome<std::vector<LostWork>>& outcome) {
            if (!outcome.hasFailed()) lost_ = std::move(outcome.value());
            offer();
            if (then) then();
        }));
}

void LostWorkShelf::offer() {
    std::vector<LostWorkOffer> offers;
    for (const LostWork& lost : lost_) offers.push_back({lost.assetRoot(), lost.at()});
    around_.offers = std::move(offers);
}

std::optional<LostWork> LostWorkShelf::take(std::size_t index) {
    if (index >= lost_.size()) return std::nullopt;
    LostWork taken = lost_[index];
    lost_.erase(lost_.begin() + std::ptrdiff_t(index));
    offer();
    return taken;
}

void LostWorkShelf::forget(const LostWork& lost) {
    around_.files.post([lost] { lost.forget(); });
}

}   // namespace tavix
