// How large a regular expression becomes when it is compiled.
#include "ExpressionSize.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace otx {

namespace {

constexpr std::size_t largest = std::numeric_limits<std::size_t>::max();

std::size_t sum(std::size_t left, std::size_t right) { return left > largest - right ? largest : left + right; }

std::size_t product(std::size_t left, std::size_t right) {
    return left != 0 && right > largest / left ? largest : left * right;
}

// The larger of the counts in "3,5}", and the place after the brace.
std::size_t repetitions(std::wstring_view expression, std::size_t& place) {
    std::size_t count = 1;
    std::size_t number = 0;
    for (; place < expression.size() && expression[place] != L'}'; ++place) {
        const wchar_t character = expression[place];
        if (character >= L'0' && character <= L'9')
            number = sum(product(number, 10), static_cast<std::size_t>(character - L'0'));
        else
            number = 0;
        count = std::max(count, number);
    }
    ++place;
    return count;
}

std::size_t afterClass(std::wstring_view expression, std::size_t place) {
    for (; place < expression.size() && expression[place] != L']'; ++place) {
        if (expression[place] == L'\\') ++place;
    }
    return place + 1;
}

// What has been read of one group: all of it, and its last part, to which a repetition applies.
struct Group {
    std::size_t whole = 1;
    std::size_t last = 0;

    void add(std::size_t part) {
        whole = sum(whole, part);
        last = part;
    }
};

}  // namespace

std::size_t expandedSize(std::wstring_view expression) {
    std::vector<Group> groups(1);
    for (std::size_t place = 0; place < expression.size();) {
        Group& group = groups.back();
        const std::size_t begin = place;
        switch (expression[place++]) {
            case L'(': groups.emplace_back(); break;
            case L')':
                if (groups.size() > 1) {
                    const std::size_t size = group.whole;
                    groups.pop_back();
                    groups.back().add(sum(size, 2));
                }
                break;
            case L'{': group.add(product(group.last, repetitions(expression, place))); break;
            case L'[':
                place = afterClass(expression, place);
                group.add(place - begin);
                break;
            case L'\\':
                ++place;
                group.add(2);
                break;
            default: group.add(1);
        }
    }
    std::size_t size = 0;
    for (const Group& group : groups) size = sum(size, group.whole);
    return size;
}

}  // namespace otx
