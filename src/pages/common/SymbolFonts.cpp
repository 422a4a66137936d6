#include "pages/common/SymbolFonts.h"

#include <string_view>

namespace {

using Table = std::array<char16_t, 256>;
constexpr char16_t kUnknown = u'\u2022';

void Fill(Table& table, size_t first, std::u16string_view characters) {
  for (size_t i = 0; i < characters.size() && first + i < table.size(); ++i)
    table[first + i] = characters[i];
}

Table BlankTable() {
  Table table;
  table.fill(kUnknown);
  for (size_t i = 0; i < 0x20; ++i)
    table[i] = static_cast<char16_t>(i);
  table[0x20] = u' ';
  table[0xA0] = u'\u00A0';
  return table;
}

Table MakeSymbolTable() {
  Table table = BlankTable();
  Fill(table, 0x20, u" !\u2200#\u2203%&\u220B()\u2217+,\u2212./0123456789:;<=>?");
  Fill(table, 0x40,
       u"\u2245\u0391\u0392\u03A7\u0394\u0395\u03A6\u0393\u0397\u0399\u03D1\u039A\u039B\u039C\u039D\u039F");
  Fill(table, 0x50, u"\u03A0\u0398\u03A1\u03A3\u03A4\u03A5\u03C2\u03A9\u039E\u03A8\u0396[\u2234]\u22A5_");
  Fill(table, 0x60,
       u"\u203E\u03B1\u03B2\u03C7\u03B4\u03B5\u03C6\u03B3\u03B7\u03B9\u03D5\u03BA\u03BB\u03BC\u03BD\u03BF");
  Fill(table, 0x70, u"\u03C0\u03B8\u03C1\u03C3\u03C4\u03C5\u03D6\u03C9\u03BE\u03C8\u03B6{|}\u223C");
  Fill(table, 0xA0,
       u"\u20AC\u03D2\u2032\u2264\u2044\u221E\u0192\u2663\u2666\u2665\u2660\u2194\u2190\u2191\u2192\u2193");
  Fill(table, 0xB0,
       u"\u00B0\u00B1\u2033\u2265\u00D7\u221D\u2202\u2022\u00F7\u2260\u2261\u2248\u2026\u23D0\u23AF\u21B5");
  Fill(table, 0xC0,
       u"\u2135\u2111\u211C\u2118\u2297\u2295\u2205\u2229\u222A\u2283\u2287\u2284\u2282\u2286\u2208\u2209");
  Fill(table, 0xD0,
       u"\u2220\u2207\u00AE\u00A9\u2122\u220F\u221A\u22C5\u00AC\u2227\u2228\u21D4\u21D0\u21D1\u21D2\u21D3");
  Fill(table, 0xE0,
       u"\u25CA\u2329\u00AE\u00A9\u2122\u2211\u239B\u239C\u239D\u23A1\u23A2\u23A3\u23A7\u23A8\u23A9\u23AA");
  Fill(table, 0xF1, u"\u232A\u222B\u2320\u23AE\u2321\u239E\u239F\u23A0\u23A4\u23A5\u23A6\u23AB\u23AC\u23AD");
  return table;
}

Table MakeDingbatTable() {
  Table table = BlankTable();
  table[0x22] = u'\u2702';
  Fill(table, 0x28, u"\u260E");
  Fill(table, 0x2A, u"\u2709");
  Fill(table, 0x36, u"\u231B\u2328");
  Fill(table, 0x41, u"\u270C");
  Fill(table, 0x45, u"\u261C\u261E\u261D\u261F");
  Fill(table, 0x4A, u"\u263A");
  Fill(table, 0x4C, u"\u2639");
  Fill(table, 0x51, u"\u2708\u263C");
  Fill(table, 0x54, u"\u2744");
  Fill(table, 0x58, u"\u2720\u2721\u262A\u262F");
  Fill(table, 0x6C, u"\u25CF\u274D\u25A0\u25A1");
  Fill(table, 0x71, u"\u2751\u2752\u29EB\u29EB\u25C6\u2756\u25C6\u2327");
  Fill(table, 0x7A, u"\u2318\u2740\u273F\u275D\u275E");
  Fill(table, 0x80, u"\u24EA\u2460\u2461\u2462\u2463\u2464\u2465\u2466\u2467\u2468\u2469");
  Fill(table, 0x8B, u"\u24FF\u2776\u2777\u2778\u2779\u277A\u277B\u277C\u277D\u277E\u277F");
  Fill(table, 0x9E, u"\u00B7\u2022\u25AA\u25CB");
  Fill(table, 0xA4, u"\u25C9\u25CE");
  Fill(table, 0xA7, u"\u25AA\u25FB");
  Fill(table, 0xAA, u"\u2726\u2605\u2736\u2734\u2739\u2735");
  Fill(table, 0xD5, u"\u232B\u2326");
  Fill(table, 0xD8, u"\u27A2");
  table[0xDC] = u'\u27B2';
  Fill(table, 0xDF, u"\u2190\u2192\u2191\u2193\u2196\u2197\u2199\u2198");
  Fill(table, 0xE8, u"\u2794");
  Fill(table, 0xEF, u"\u21E6\u21E8\u21E7\u21E9\u21D4\u21F3");
  Fill(table, 0xFB, u"\u2717\u2713\u2612\u2611");
  return table;
}

}  // namespace

int SymbolCodePageOf(const QString& fontName) {
  return fontName.startsWith(QLatin1String("Wingdings"), Qt::CaseInsensitive) ? kDingbatCodePage
                                                                              : kSymbolCodePage;
}

const std::array<char16_t, 256>& SymbolTable(int codePage) {
  static const Table symbol = MakeSymbolTable();
  static const Table dingbat = MakeDingbatTable();
  return codePage == kDingbatCodePage ? dingbat : symbol;
}
