#ifndef ZRBASE_CLUSTERING_INTERNAL_LARGEPAGES_H
#define ZRBASE_CLUSTERING_INTERNAL_LARGEPAGES_H

#include <cstddef>
#include <cstdint>

#if defined(__linux__)
#include <sys/mman.h>
#endif

/// Asks the system to back a large block by large pages, where it knows them: jumps through a
/// tree then miss the address cache less, and first touches cost less. A refusal is no loss.
inline void adviseLargePages(void* block, std::size_t bytes) {
#if defined(__linux__) && defined(MADV_HUGEPAGE)
  constexpr std::size_t largePage = std::size_t{1} << 21;
  if (bytes < 2 * largePage) return;
  const std::uintptr_t first = reinterpret_cast<std::uintptr_t>(block);
  const std::uintptr_t begin = (first + largePage - 1) / largePage * largePage;
  const std::uintptr_t end = (first + bytes) / largePage * largePage;
  madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
#else
  static_cast<void>(block);
  static_cast<void>(bytes);
#endif
}

#endif  // ZRBASE_CLUSTERING_INTERNAL_LARGEPAGES_H
