#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "platform/xls/record.h"
#include "platform/xls/workbook.h"

/// Takes workbook streams apart, and makes such as other programs write.
namespace desk::xls {

inline std::vector<Record> recordsIn(std::string_view bytes) {
    std::vector<Record> records;
    for (std::size_t at = 0; at < bytes.size(); at = records.back().end())
        records.push_back(recordAt(bytes, at));
    return records;
}

inline std::vector<Record> globalsOf(std::string_view stream) {
    auto records = recordsIn(stream);
    const auto end =
        std::find_if(records.begin(), records.end(), [](const auto& each) { return each.id == id::eof; });
    return {records.begin(), end};
}

/// The records of a sheet by its place in the list.
inline std::vector<Record> sheetOf(std::string_view stream, std::size_t which) {
    for (const Record& each : globalsOf(stream)) {
        if (each.id != id::boundSheet || which-- > 0) continue;
        auto records = recordsIn(stream.substr(longAt(each.body, 0)));
        int depth = 0;
        const auto end = std::find_if(records.begin(), records.end(), [&](const auto& one) {
            depth += one.id == id::bof ? 1 : one.id == id::eof ? -1 : 0;
            return depth == 0;
        });
        return {records.begin(), end + 1};
    }
    return {};
}

inline std::string rawRecord(std::uint16_t id, std::string_view body) {
    return Bytes().record(id, body).take();
}

/// `stream` with other bytes in the place of the first of its globals of that kind.
inline std::string withGlobal(std::string stream, std::uint16_t id, const std::string& bytes) {
    std::size_t at = 0;
    std::size_t size = 0;
    for (const Record& each : globalsOf(stream))
        if (each.id == id && size == 0) {
            at = each.at;
            size = each.end() - each.at;
        }
    for (const Record& each : globalsOf(stream))
        if (each.id == id::boundSheet) {
            const std::size_t place = each.at + headerSize;
            putLong(stream, place, static_cast<std::uint32_t>(longAt(stream, place) + bytes.size() - size));
        }
    return stream.replace(at, size, bytes);
}

/// `stream` with these bytes behind the first record of that kind in its last sheet.
inline std::string withInLastSheet(std::string stream, std::size_t sheet, std::uint16_t behind,
                                   const std::string& bytes) {
    const auto records = sheetOf(stream, sheet);
    const auto found = std::find_if(records.begin(), records.end(),
                                    [behind](const auto& each) { return each.id == behind; });
    const std::size_t at = stream.size() - (records.back().end() - found->end());
    return stream.insert(at, bytes);
}

inline std::string streamWith(std::string_view stream, const Worksheet& sheet) {
    return join(withSheet(stream, sheet), "");
}

}  // namespace desk::xls
