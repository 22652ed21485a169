#include "tests/support/field_model.h"

namespace {

bool IsDigit(char32_t c) {
    return c >= '0' && c <= '9';
}

}  // namespace

bool FieldModel::Accepts(char32_t c) const {
    const bool atStart = Cursor == 0;
    const bool isNew = Content.find(c) == std::u32string::npos;
    if (Mode < 2 || Mode > 4 || IsDigit(c)) return true;
    if (Mode == 2) return c == '-' && atStart;
    if (Mode == 4) return c == '-' && !atStart && isNew;
    return c == '-' ? atStart || Content[Cursor - 1] == 'e' : (c == ',' || c == 'e') && isNew;
}

void FieldModel::Insert(std::int64_t code) {
    if (Content.size() >= Most || code == 0) return;
    char32_t c = toolkit::IsScalar(code) ? static_cast<char32_t>(code) : 0;
    if (Mode == 3 && c == 'E') c = 'e';
    if (Mode == 3 && c == '.') c = ',';
    if (Accepts(c)) Content.insert(Cursor++, 1, c);
}

// The first of the digits is one, or nothing is entered.
void FieldModel::InsertByNumber(std::string_view digits) {
    std::int64_t code = 0;
    for (const char c : digits) {
        if (!IsDigit(static_cast<unsigned char>(c))) break;
        code = code * 10 + c - '0';
    }
    if (code >= (Mode == 1 ? 1 : 32) && code <= 255) Insert(code);
}

void FieldModel::Apply(std::int64_t key, std::string_view digits) {
    const auto is = [key](std::initializer_list<std::int64_t> keys) {
        return std::find(keys.begin(), keys.end(), key) != keys.end();
    };
    const std::size_t end = Content.size();
    if (is({3, 5, 6, 10})) Cursor = end;
    if (key == 4) Cursor = Cursor == end ? end : std::min(Content.find(' ', Cursor), end - 1) + 1;
    if (key == 19) {  // behind the blank before; to the start without one
        Cursor = (Cursor < 2 ? std::u32string::npos : Content.rfind(' ', Cursor - 2)) + 1;
    }
    if (key == 8 && Cursor > 0) --Cursor;
    if (key == 21 && Cursor < end) ++Cursor;
    if (key == 7 && Cursor < end) Content.erase(Cursor, 1);
    if (key == 127 && Cursor > 0) Content.erase(--Cursor, 1);
    if (key == 24) Content.erase(0, Cursor);
    if (is({26, 27})) Content.clear();
    if (is({1, 2, 11, 18, 24, 26, 27})) Cursor = 0;
    if (is({13, 27})) Finished = key == 13;
    if (key == 30) InsertByNumber(digits);
    if (key >= 32 && key != 127) Insert(key);
}
