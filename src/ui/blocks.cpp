#include "ui/blocks.h"

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/asan_interface.h>
#else
#define ASAN_POISON_MEMORY_REGION(address, size) ((void)(address), (void)(size))
#define ASAN_UNPOISON_MEMORY_REGION(address, size) ((void)(address), (void)(size))
#endif

namespace desk {

namespace {
constexpr std::size_t blockSize = 65536;
}

Blocks::~Blocks() {
    for (const auto& block : blocks_) ASAN_UNPOISON_MEMORY_REGION(block.get(), blockSize);
}

std::byte* Blocks::takeAligned(std::size_t size, std::size_t alignment) {
    if (size > blockSize) return large_.emplace_back(std::make_unique_for_overwrite<std::byte[]>(size)).get();
    std::size_t start = (usedBytes_ + alignment - 1) & ~(alignment - 1);
    if (usedBlocks_ == 0 || start + size > blockSize) {
        if (usedBlocks_ == blocks_.size()) {
            blocks_.push_back(std::make_unique_for_overwrite<std::byte[]>(blockSize));
            ASAN_POISON_MEMORY_REGION(blocks_.back().get(), blockSize);
        }
        ++usedBlocks_;
        start = 0;
    }
    usedBytes_ = start + size;
    std::byte* piece = blocks_[usedBlocks_ - 1].get() + start;
    ASAN_UNPOISON_MEMORY_REGION(piece, size);
    return piece;
}

void* Blocks::take(std::size_t size) {
    return takeAligned(size, alignof(std::max_align_t));
}

char* Blocks::takeText(std::size_t size) {
    return reinterpret_cast<char*>(takeAligned(size, 1));
}

void Blocks::leave(const void* piece, std::size_t size) {
    ASAN_POISON_MEMORY_REGION(piece, size);
}

void Blocks::clear() {
    for (std::size_t i = 0; i < usedBlocks_; ++i) ASAN_POISON_MEMORY_REGION(blocks_[i].get(), blockSize);
    large_.clear();
    usedBlocks_ = 0;
    usedBytes_ = 0;
}

}  // namespace desk
