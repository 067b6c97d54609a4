// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_API_H_
#define ZEVO_API_H_

// Marks what the shared library exports; everything else is hidden.
#if defined(ZEVO_STATIC)
#define ZEVO_API
#elif defined(_WIN32)
#ifdef ZEVO_BUILDING_LIBRARY
#define ZEVO_API __declspec(dllexport)
#else
#define ZEVO_API __declspec(dllimport)
#endif
#else
#define ZEVO_API __attribute__((visibility("default")))
#endif

#endif  // ZEVO_API_H_
