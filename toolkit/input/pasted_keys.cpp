#include "toolkit/input/pasted_keys.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

#include "platform/search.h"
#include "toolkit/core/codes.h"
#include "toolkit/core/utf8.h"

namespace toolkit {

namespace {

constexpr int kMostDigits = 3;  // of a character entered by number

// What the editor does at a key, as far as it may be told without knowing the field. Keys that move
// the cursor or do something else have no row.
enum class Effect : std::uint8_t { Other, None, DeletesOne, DeletesMany, Cancels, ReadsNumber };

struct EffectRow {
    char32_t Code;
    Effect What;
};

constexpr EffectRow kEffects[] = {
    {7, Effect::DeletesOne},           //
    {9, Effect::None},                 //
    {14, Effect::None},                //
    {15, Effect::None},                //
    {16, Effect::None},                //
    {17, Effect::None},                //
    {20, Effect::None},                //
    {23, Effect::None},                //
    {24, Effect::DeletesMany},         //
    {25, Effect::None},                //
    {26, Effect::DeletesMany},         //
    {kEscape, Effect::Cancels},        //
    {28, Effect::None},                //
    {29, Effect::None},                //
    {30, Effect::ReadsNumber},         //
    {kBackspace, Effect::DeletesOne},  //
};

Effect EffectOf(char32_t key) {
    const auto* const row = platform::RowWith(kEffects, &EffectRow::Code, key);
    return row == nullptr ? Effect::Other : row->What;
}

// The characters that an input mode may accept besides the digits; no value: it accepts all.
std::optional<std::u32string_view> OtherCharacters(std::int64_t mode) {
    switch (mode) {
        case 2:
        case 4:
            return U"-";
        case 3:
            return U"-,.eE";
        default:
            return std::nullopt;
    }
}

// Reads a line from its start and tells which of its keys may have an effect.
class Sieve {
  public:
    explicit Sieve(const t_Window& w)
        : room_(std::min<std::int64_t>(w.InputMaxCharacters, Minus(w.TextLastColumn, w.InputHpos))),
          others_(OtherCharacters(w.InputMode)) {}

    bool LetsThrough(char32_t key) {
        if (cancelled_) return true;
        if (digits_ > 0) {
            digits_ = IsDigit(key) ? digits_ - 1 : 0;
            return true;
        }
        return key >= kBlank && key != kBackspace ? MayBeInserted(key) : DoesSomething(key);
    }

  private:
    [[nodiscard]] bool IsFull() const { return least_ >= room_; }

    bool MayBeInserted(char32_t key) {
        if (IsFull()) return false;
        if (!others_ || IsDigit(key)) {
            ++least_;
            if (!std::exchange(digitSeen_, true)) seen_.clear();
            return true;
        }
        return others_->find(key) != std::u32string_view::npos && IsNew(key);
    }

    // Of the same character in a row only the first one may be accepted. What lets a later one in
    // is the first digit or the first e, or a key that moves the cursor or deletes.
    bool IsNew(char32_t key) {
        if ((key == 'e' || key == 'E') && !std::exchange(exponentSeen_, true)) seen_.clear();
        if (seen_.find(key) != std::u32string::npos) return false;
        seen_ += key;
        return true;
    }

    bool DoesSomething(char32_t key) {
        const Effect effect = EffectOf(key);
        if (effect == Effect::None) return !IsFull();
        if (effect == Effect::DeletesOne && least_ > 0) --least_;
        if (effect == Effect::DeletesMany) least_ = 0;
        if (effect == Effect::ReadsNumber) digits_ = kMostDigits;
        cancelled_ = effect == Effect::Cancels;
        seen_.clear();
        digitSeen_ = exponentSeen_ = false;
        return true;
    }

    const std::int64_t room_;
    const std::optional<std::u32string_view> others_;
    std::int64_t least_ = 0;  // characters that the field holds for certain, up to its room
    std::u32string seen_;     // characters other than digits since then
    bool digitSeen_ = false;
    bool exponentSeen_ = false;
    bool cancelled_ = false;
    int digits_ = 0;  // keys that the entry by number may still read
};

}  // namespace

std::string PastedKeys(const t_Window& w, std::string_view line) {
    Sieve sieve(w);
    std::string kept;
    while (!line.empty()) {
        const Decoded next = DecodeFirst(line);
        line.remove_prefix(next.Length);
        // The newest key waiting is also looked at by itself: it stays the same.
        if (sieve.LetsThrough(next.Code) || line.empty()) AppendCharacter(kept, next.Code);
    }
    return kept;
}

}  // namespace toolkit
