#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace desk {

/// Memory that is taken piece by piece and given back all at once. It comes in large blocks, which are kept
/// for the next fill: what has held a hundred thousand things is mostly filled with as many again.
class Blocks {
  public:
    Blocks() = default;
    ~Blocks();
    Blocks(const Blocks&) = delete;
    Blocks& operator=(const Blocks&) = delete;

    /// Room for `size` bytes, aligned for any object.
    void* take(std::size_t size);
    /// Room for `size` characters.
    char* takeText(std::size_t size);
    /// Tells the checks for stale pointers that nobody may look at a piece any more; its place stays unused.
    static void leave(const void* piece, std::size_t size);
    /// All pieces are gone.
    void clear();

  private:
    std::byte* takeAligned(std::size_t size, std::size_t alignment);

    std::vector<std::unique_ptr<std::byte[]>> blocks_;
    std::vector<std::unique_ptr<std::byte[]>> large_;  ///< pieces that no block would hold
    std::size_t usedBlocks_ = 0;
    std::size_t usedBytes_ = 0;  ///< of the last block in use
};

}  // namespace desk
