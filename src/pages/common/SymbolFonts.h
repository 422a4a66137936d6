// What the characters of symbol fonts mean in Unicode, so that bullets and Greek letters show in any font.
#pragma once

#include <QString>
#include <array>

// Code pages of our own for the two symbol fonts that pages use; any other symbol font counts as the first.
inline constexpr int kSymbolCodePage = 42;
inline constexpr int kDingbatCodePage = 43;

inline constexpr bool IsSymbolCodePage(int codePage) {
  return codePage == kSymbolCodePage || codePage == kDingbatCodePage;
}

// The code page of a symbol font by its name.
int SymbolCodePageOf(const QString& fontName);

// The 256 characters of a symbol code page; unknown places hold a bullet.
const std::array<char16_t, 256>& SymbolTable(int codePage);
