#include "support/recording_machine.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "base/failure.h"
#include "base/text.h"
#include "platform/key_string.h"

namespace desk {

void MachineJournal::add(const std::string& line) {
    lines.push_back(line);
    note(line);
    hook(line);
}

std::vector<std::string> MachineJournal::take() {
    return std::exchange(lines, {});
}

bool RecordingPrograms::isThere(std::string_view title) const {
    return std::find(windows.begin(), windows.end(), title) != windows.end();
}

bool RecordingPrograms::hasWindow(std::string_view title) {
    journal_.add(fmt::format("has window {}", title));
    return isThere(title);
}

void RecordingPrograms::activate(std::string_view title) {
    journal_.add(fmt::format("activate {}", title));
    if (!isThere(title)) throw RuntimeFailure(failure::invalidCall, "无效的过程调用或参数");
}

bool RecordingPrograms::start(const std::string& program, const std::vector<std::string>& arguments) {
    journal_.add(fmt::format("start {} {}", program, join(arguments, " ")));
    return canStart;
}

std::int64_t RecordingPrograms::startMinimised(const std::string& program) {
    journal_.add(fmt::format("start minimised {}", program));
    if (!canStart) throw RuntimeFailure(failure::fileNotFound, "文件未找到：" + program);
    if (const auto brought = brings.find(program); brought != brings.end())
        windows.push_back(brought->second);
    running.insert(++startedSoFar_);
    return startedSoFar_;
}

bool RecordingPrograms::isRunning(std::int64_t process) {
    journal_.add(fmt::format("is running {}", process));
    return running.contains(process);
}

bool RecordingPrograms::openForUser(const std::string& what) {
    journal_.add(fmt::format("open {}", what));
    return canOpen;
}

void RecordingKeyboard::send(std::string_view keyString) {
    readKeyString(keyString);
    journal_.add(fmt::format("send {}", keyString));
}

void RecordingPointer::moveTo(std::int32_t x, std::int32_t y) {
    journal_.add(fmt::format("pointer {} {}", x, y));
}

void RecordingPointer::event(std::uint32_t flags, std::int32_t dx, std::int32_t dy) {
    journal_.add(fmt::format("mouse {} {} {}", flags, dx, dy));
}

void RecordingClipboard::clear() {
    journal_.add("clipboard clear");
    held.clear();
}

std::string RecordingClipboard::text() {
    journal_.add("clipboard text");
    return held;
}

}  // namespace desk
