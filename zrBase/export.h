#ifndef ZRBASE_EXPORT_H
#define ZRBASE_EXPORT_H

/// @file
/// Visibility of the library's symbols: the library is built with hidden visibility, and only what
/// carries `ZRBASE_EXPORT` can be linked against.

#if defined(_WIN32)
#if defined(ZRBASE_BUILDING_LIBRARY)
#define ZRBASE_EXPORT __declspec(dllexport)
#else
#define ZRBASE_EXPORT __declspec(dllimport)
#endif
#else
#define ZRBASE_EXPORT __attribute__((visibility("default")))
#endif

#endif  // ZRBASE_EXPORT_H
