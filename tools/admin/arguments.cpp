#include "admin/arguments.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>

namespace desk::admin {

Arguments::Arguments(const std::vector<std::string>& words, const std::vector<std::string>& known,
                     std::size_t plainCount, std::string_view plainNames) {
    for (auto word = words.begin(); word != words.end(); ++word) {
        if (!word->starts_with("--")) {
            plain_.push_back(*word);
            continue;
        }
        const auto sign = word->find('=');
        const std::string name = word->substr(2, sign == std::string::npos ? sign : sign - 2);
        if (std::find(known.begin(), known.end(), name) == known.end())
            throw UsageError(fmt::format("不认识的选项“--{}”", name));
        if (sign == std::string::npos && std::next(word) == words.end())
            throw UsageError(fmt::format("选项“--{}”缺少值", name));
        const std::string value = sign != std::string::npos ? word->substr(sign + 1) : *++word;
        if (!options_.emplace(name, value).second) throw UsageError(fmt::format("选项“--{}”重复", name));
    }
    if (plain_.size() < plainCount) throw UsageError(fmt::format("缺少参数：{}", plainNames));
    if (plain_.size() > plainCount) throw UsageError(fmt::format("多余的参数“{}”", plain_[plainCount]));
}

std::optional<std::string> Arguments::option(const std::string& name) const {
    const auto found = options_.find(name);
    if (found == options_.end()) return std::nullopt;
    return found->second;
}

std::string Arguments::option(const std::string& name, std::string_view fallback) const {
    return option(name).value_or(std::string(fallback));
}

long Arguments::number(const std::string& name, long fallback, long least, long most) const {
    const auto text = option(name);
    if (!text) return fallback;
    long value = 0;
    const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), value);
    if (error != std::errc() || end != text->data() + text->size() || value < least || value > most)
        throw UsageError(
            fmt::format("选项“--{}”应为 {} 到 {} 之间的整数，不是“{}”", name, least, most, *text));
    return value;
}

}  // namespace desk::admin
