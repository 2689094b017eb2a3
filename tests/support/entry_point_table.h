// Every C entry point of both libraries as a row of one table, for what they
// all share. A row gives the arguments of a call that succeeds, each pointer
// argument a buffer of exactly the size the entry point reads or writes (on the
// heap, so that a sanitizer sees a byte too far), every output first filled
// with a sentinel byte; the call is made as a host makes it, through the
// library loaded by path and the entry point looked up by its exported name.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <functional>
#include <initializer_list>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "corvane/corvane.h"
#include "corvane/corvane_strength.h"
#include "interface/loaded_library.h"

namespace corvane::testing {

inline constexpr unsigned char kUnwritten = 0x7f;
inline constexpr float kInfinity = std::numeric_limits<float>::infinity();

using Bytes = std::vector<unsigned char>;

class Arguments {
 public:
  // Scalars, one argument each.
  Arguments& each(std::initializer_list<float> values) {
    for (const float v : values) add(&v, sizeof v, Kind::real);
    return *this;
  }
  // Array arguments, one for each list.
  Arguments& arrays(std::initializer_list<std::initializer_list<float>> lists) {
    for (const auto& v : lists) add(v.begin(), v.size() * sizeof(float), Kind::real);
    return *this;
  }
  Arguments& integers(std::initializer_list<std::int32_t> values) {
    return add(values.begin(), values.size() * sizeof(std::int32_t), Kind::integer);
  }
  Arguments& text(std::string_view s, std::size_t length) {
    Bytes b(length, ' ');
    std::copy_n(s.begin(), std::min(s.size(), length), b.begin());
    return add(b.data(), length, Kind::text);
  }
  // `count` outputs of `values` floats or integers each.
  Arguments& out(std::size_t values, int count = 1) {
    for (int k = 0; k < count; ++k)
      args_.push_back({Bytes(4 * values, kUnwritten), Kind::output});
    return *this;
  }
  Arguments& out_text(std::size_t length) {
    args_.push_back({Bytes(length, kUnwritten), Kind::output});
    return *this;
  }
  Arguments& message() {
    message_ = static_cast<int>(size());
    return out_text(CORVANE_STRENGTH_MESSAGE_LENGTH);
  }

  std::size_t size() const { return args_.size(); }
  enum class Kind { real, integer, text, output };
  Kind kind(std::size_t i) const { return args_[i].kind; }
  bool output(std::size_t i) const { return args_[i].kind == Kind::output; }
  Bytes& operator[](std::size_t i) { return args_[i].bytes; }
  const Bytes& operator[](std::size_t i) const { return args_[i].bytes; }
  template <typename T>
  T get(std::size_t i, std::size_t k = 0) const {
    T x;
    std::memcpy(&x, args_[i].bytes.data() + k * sizeof x, sizeof x);
    return x;
  }
  template <typename T>
  std::vector<T> all_of(std::size_t i) const {
    std::vector<T> v(args_[i].bytes.size() / sizeof(T));
    std::memcpy(v.data(), args_[i].bytes.data(), v.size() * sizeof(T));
    return v;
  }
  template <typename T>
  Arguments& set(std::size_t i, std::size_t k, T x) {
    std::memcpy(args_[i].bytes.data() + k * sizeof x, &x, sizeof x);
    return *this;
  }
  Arguments& retext(std::size_t i, std::string_view s) {
    Bytes& b = args_[i].bytes;
    std::fill(b.begin(), b.end(), ' ');
    std::copy_n(s.begin(), std::min(s.size(), b.size()), b.begin());
    return *this;
  }
  std::string text_of(std::size_t i) const {
    return {args_[i].bytes.begin(), args_[i].bytes.end()};
  }
  std::int32_t code() const { return get<std::int32_t>(size() - 1); }
  bool has_message() const { return message_ >= 0; }
  bool is_message(std::size_t i) const { return static_cast<int>(i) == message_; }
  std::string said() const { return has_message() ? text_of(message_) : ""; }
  Bytes all() const {
    Bytes b;
    for (const auto& a : args_) b.insert(b.end(), a.bytes.begin(), a.bytes.end());
    return b;
  }

  int missing = -1;         // the pointer argument passed as null
  std::int64_t hidden = 3;  // every hidden length, which the entry points ignore

  // What a parameter of type P at pointer position i is given.
  template <typename P>
  P pass(std::size_t i) {
    if constexpr (std::is_pointer_v<P>) {
      return static_cast<int>(i) == missing ? nullptr
                                            : reinterpret_cast<P>(args_[i].bytes.data());
    } else {
      return hidden;
    }
  }

 private:
  struct Argument {
    Bytes bytes;
    Kind kind;
  };
  Arguments& add(const void* p, std::size_t n, Kind kind) {
    const auto* b = static_cast<const unsigned char*>(p);
    args_.push_back({Bytes(b, b + n), kind});
    return *this;
  }
  std::vector<Argument> args_;
  int message_ = -1;
};

// Calls f with the arguments in order, the hidden lengths between them.
template <typename... P, std::size_t... K>
void invoke(void (*f)(P...), Arguments& a, std::index_sequence<K...>) {
  constexpr std::array<bool, sizeof...(P)> pointer{std::is_pointer_v<P>...};
  std::array<std::size_t, sizeof...(P)> slot{};
  std::size_t n = 0;
  for (std::size_t k = 0; k < pointer.size(); ++k) {
    slot[k] = n;
    n += pointer[k];
  }
  if (n != a.size()) throw std::logic_error("a row and its entry point disagree");
  f(a.template pass<P>(slot[K])...);
}

inline const LoadedLibrary& corvane_library() { return library_under_test(); }
inline const LoadedLibrary& strength_library() {
  static const LoadedLibrary library(CORVANE_STRENGTH_LIBRARY);
  return library;
}

struct EntryPoint {
  std::string name;
  std::function<Arguments()> arguments;  // of a call that succeeds
  std::function<void(Arguments&)> call;
};

template <typename... P>
EntryPoint row(const char* name, const LoadedLibrary& (*library)(),
               Arguments (*arguments)(), void (*)(P...) = nullptr) {
  return {name, arguments, [name, library](Arguments& a) {
            invoke(library().entry<void(P...)>(name), a, std::index_sequence_for<P...>{});
          }};
}
#define CORVANE_ROW(LIBRARY, NAME, ARGUMENTS)               \
  row(                                                      \
      #NAME, LIBRARY, [] { return Arguments() ARGUMENTS; }, \
      static_cast<decltype(&NAME)>(nullptr))

// Ply materials: t, E1, E2, G12, nu12, CTE1, CTE2; then F1t, F1c, F2t, F2c, F12,
// uetall, uecall for strength.
#define CORVANE_TAPE 0.125f, 140000, 10000, 5000, 0.3f, -0.5e-6f, 30e-6f
#define CORVANE_FABRIC 0.25f, 25000, 24000, 4000, 0.12f, 10e-6f, 11e-6f
#define CORVANE_T300 0.125f, 181000, 10300, 7170, 0.28f, 0.02e-6f, 22.5e-6f
#define CORVANE_STRENGTHS 1500, 1500, 40, 246, 68
#define CORVANE_PANEL_A 50000, 15000, 0, 15000, 40000, 0, 0, 0, 17000
#define CORVANE_PANEL_D 4000, 1200, 0, 1200, 3500, 0, 0, 0, 1400
#define CORVANE_T300_STRENGTH CORVANE_T300, CORVANE_STRENGTHS, 1500, 1500
#define CORVANE_GLASS_STRENGTH \
  0.2f, 39000, 8600, 3800, 0.28f, 7e-6f, 2e-5f, 1080, 620, 39, 128, 89
// A keyed material with a hole (t, E1, E2, G12, nu12, and the allowables),
// its keys and two load cases.
#define CORVANE_KEYED 0.125f, 140000, 9000, 4600, 0.3f, 2500, 1500
#define CORVANE_KEYS "oht=450, OHC=300;A0FHT=1.2 fbr=900 FHC=280"
#define CORVANE_TWO_CASES 300, -100, 20, 0, 0, 0, 0, -800, 50, 0, 0, 0, 0, 20

inline std::string segment_layups(std::initializer_list<std::string_view> layups) {
  std::string text;
  for (const auto layup : layups) {
    text += layup;
    text.resize(text.size() + CORVANE_STRENGTH_LAYUP_LENGTH - layup.size(), ' ');
  }
  return text;
}

// clang-format off
inline const std::vector<EntryPoint>& entry_points() {
  static const std::vector<EntryPoint> rows = {
    CORVANE_ROW(corvane_library, LAMINATE_STIFFNESS, .each({CORVANE_TAPE})
        .text("(0/45/-45/90)S", CORVANE_LAYUP_LENGTH).out(1).out(9, 4).out(1, 9)
        .out_text(CORVANE_CARDS_LENGTH).out(1)),
    CORVANE_ROW(corvane_library, BI_MATERIAL_LAMINATE_STIFFNESS, .each({CORVANE_TAPE})
        .each({CORVANE_FABRIC}).text("(0/45./-45./90)S", CORVANE_LAYUP_LENGTH).out(1)
        .out(9, 4).out(1, 9).out_text(CORVANE_CARDS_LENGTH).out(1)),
    CORVANE_ROW(corvane_library, LAMINATE_STRAINS_IN_PLANE,
        .each({2, 50000, 25000, 10000, 0.3f, -200, 100, -40}).out(1, 6)),
    CORVANE_ROW(corvane_library, LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS,
        .arrays({{CORVANE_PANEL_D}}).each({500, 300}).out(1, 4)),
    CORVANE_ROW(corvane_library, LAMINATE_RECTANGULAR_SS_BUCKLING_RF,
        .each({-100, -10, 20, 500, 400, 300}).out(1, 2)),
    CORVANE_ROW(corvane_library, LAMINATE_SHELL_BUCKLING_LOADS,
        .arrays({{CORVANE_PANEL_A}, {CORVANE_PANEL_D}}).each({600, 300, 1500, 2}).out(1, 4)),
    CORVANE_ROW(strength_library, LAMINATE_STRENGTH, .each({CORVANE_T300_STRENGTH})
        .text("(0/45./-45/90)S", CORVANE_STRENGTH_LAYUP_LENGTH)
        .text("PUCK", CORVANE_STRENGTH_CRITERION_LENGTH).arrays({{-0.5f, 0.35f, 0.30f}})
        .integers({3}).arrays({{-500, 0, 40, 0, 0, 0, 0, 100, 200, -30, 5, -20, 10, 0,
                                0, 0, 0, 0, 0, 0, -100}})
        .out(3, 4).message().out(1)),
    CORVANE_ROW(strength_library, BI_MATERIAL_LAMINATE_STRENGTH,
        .each({CORVANE_T300_STRENGTH}).each({CORVANE_GLASS_STRENGTH, 0.004f, 0.005f})
        .text("(0/45./-45/90)S", CORVANE_STRENGTH_LAYUP_LENGTH)
        .text("PUCK", CORVANE_STRENGTH_CRITERION_LENGTH).arrays({{-0.5f, 0.35f, 0.30f}})
        .integers({2}).arrays({{-500, 0, 40, 0, 0, 0, 0, 100, 200, -30, 5, -20, 10, 0}})
        .out(2, 4).message().out(1)),
    CORVANE_ROW(strength_library, MATERIAL_DATA,
        .text("t300/5208", CORVANE_MATERIAL_NAME_LENGTH)
        .text("", CORVANE_MATERIAL_PLACES_LENGTH)
        .text(CORVANE_MATERIALS_DIR, CORVANE_MATERIAL_PATH_LENGTH)
        .out(CORVANE_MATERIAL_VALUES).out(1).out_text(CORVANE_MATERIAL_NAME_LENGTH)
        .out_text(CORVANE_MATERIAL_PATH_LENGTH).out(1).message().out(1)),
    CORVANE_ROW(strength_library, MATERIAL_NAMES,
        .text("", CORVANE_MATERIAL_PLACES_LENGTH)
        .text(CORVANE_MATERIALS_DIR, CORVANE_MATERIAL_PATH_LENGTH)
        .out(1).out_text(CORVANE_MATERIAL_NAMES_LENGTH).message().out(1)),
    CORVANE_ROW(strength_library, LAMINATE_SOLVER_DECK, .each({CORVANE_T300, CORVANE_STRENGTHS})
        .text("(0/45/-45/90)3S", CORVANE_STRENGTH_LAYUP_LENGTH).integers({0})
        .out_text(CORVANE_SOLVER_DECK_LENGTH).out(1).message().out(1)),
    CORVANE_ROW(strength_library, BI_MATERIAL_LAMINATE_SOLVER_DECK,
        .each({CORVANE_T300, CORVANE_STRENGTHS}).each({CORVANE_GLASS_STRENGTH})
        .text("(0/45./-45./90)2", CORVANE_STRENGTH_LAYUP_LENGTH).integers({-1})
        .out_text(CORVANE_SOLVER_DECK_LENGTH).out(1).message().out(1)),
    // A Z section: the web of material 2 (a weaker F1c), the flanges' Fcu
    // given, the web's from first-ply failure.
    CORVANE_ROW(strength_library, SECTION_CRIPPLING, .integers({2})
        .arrays({{CORVANE_T300_STRENGTH, CORVANE_T300, 1500, 900, 40, 246, 68, 1500, 1500}})
        .integers({3}).arrays({{20, 10, 20, 0, 40, 0, 0, 90, 20, -10, -20, 0}})
        .integers({1, 2, 1}).integers({1, 2, 1}).arrays({{500, 0, 500}})
        .text(segment_layups({"(0/45/-45/90)2S", "(45/-45/0/0/90)S", "(0/45/-45/90)2S"}),
              3 * CORVANE_STRENGTH_LAYUP_LENGTH)
        .text("PUCK", CORVANE_STRENGTH_CRITERION_LENGTH).arrays({{-0.5f, 0.35f, 0.30f}})
        .each({300, 1}).out(3, 5).out(1, 8).message().out(1)),
    CORVANE_ROW(strength_library, NOTCHED_LAMINATE_STRENGTH, .each({CORVANE_KEYED})
        .text(CORVANE_KEYS, CORVANE_STRENGTH_PROPERTIES_LENGTH)
        .text("(0/45/-45/90)2S", CORVANE_STRENGTH_LAYUP_LENGTH)
        .text("all", CORVANE_STRENGTH_CRITERION_LENGTH).each({6.35f}).integers({2})
        .arrays({{CORVANE_TWO_CASES}, {2000, -500}})
        .out(2 * CORVANE_STRENGTH_NOTCH_CHECKS).message().out(1)),
    CORVANE_ROW(strength_library, IMPACT_LAMINATE_STRENGTH, .each({CORVANE_KEYED})
        .text(CORVANE_KEYS, CORVANE_STRENGTH_PROPERTIES_LENGTH)
        .text("(0/45/-45/90)2S", CORVANE_STRENGTH_LAYUP_LENGTH)
        .text("CDTM-T04 0.003 0.5 0.004 0.05 1", CORVANE_STRENGTH_MODEL_LENGTH)
        .each({1, 30}).integers({2}).arrays({{CORVANE_TWO_CASES}})
        .out(2 * CORVANE_STRENGTH_IMPACT_CHECKS).message().out(1)),
    CORVANE_ROW(strength_library, PLATE_BUCKLING_LOADS_MANY, .integers({2})
        .arrays({{CORVANE_PANEL_D, CORVANE_PANEL_D}, {500, 600}, {300, 200}}).out(2, 3).out(1)),
    CORVANE_ROW(strength_library, PLATE_BUCKLING_RF_MANY, .integers({2})
        .arrays({{-100, 10}, {-10, 0}, {20, 0}, {500, 500}, {400, 400}, {300, 300}})
        .out(2, 2).out(1)),
    CORVANE_ROW(strength_library, SHELL_BUCKLING_LOADS_MANY, .integers({2})
        .arrays({{CORVANE_PANEL_A, CORVANE_PANEL_A}, {CORVANE_PANEL_D, CORVANE_PANEL_D},
                 {600, 400}, {300, 250}, {1500, 0}, {2, 1.5f}})
        .out(2, 4).out(1)),
    CORVANE_ROW(strength_library, STRAINS_IN_PLANE_MANY, .integers({2})
        .arrays({{2, 1}, {50000, 30000}, {25000, 40000}, {10000, 9000}, {0.3f, 0.1f},
                 {-200, 5}, {100, 6}, {-40, 7}})
        .out(2, 6).out(1)),
    CORVANE_ROW(strength_library, LAMINATE_STIFFNESS_PACKED, .integers({1})
        .arrays({{CORVANE_TAPE}}).text("(0/45/-45/90)S", CORVANE_LAYUP_LENGTH)
        .out(44).out(2).out_text(CORVANE_CARDS_LENGTH).out(1)),
    CORVANE_ROW(strength_library, LAMINATE_STIFFNESS_PACKED, .integers({2})
        .arrays({{CORVANE_TAPE, CORVANE_FABRIC}}).text("(0/45./-45./90)S", CORVANE_LAYUP_LENGTH)
        .out(44).out(2).out_text(CORVANE_CARDS_LENGTH).out(1)),
  };
  return rows;
}
// clang-format on

inline const EntryPoint& entry_point(std::string_view name) {
  for (const EntryPoint& e : entry_points()) {
    if (e.name == name) return e;
  }
  throw std::logic_error("no such entry point");
}

// A refused call: a change to the row's arguments, the code and a piece of
// the message; outputs that a refusal sets, each element to one value, and
// all others unwritten.
struct Refusal {
  const char* entry;
  void (*change)(Arguments&);
  std::int32_t code;
  const char* reason;
  std::vector<std::pair<std::size_t, float>> sets = {};
};

// clang-format off
inline const std::vector<Refusal>& refusals() {
  using A = Arguments;
  const char *stiffness = "LAMINATE_STIFFNESS", *bi_stiffness = "BI_MATERIAL_LAMINATE_STIFFNESS",
             *strength = "LAMINATE_STRENGTH", *bi_strength = "BI_MATERIAL_LAMINATE_STRENGTH",
             *deck = "LAMINATE_SOLVER_DECK", *bi_deck = "BI_MATERIAL_LAMINATE_SOLVER_DECK",
             *section = "SECTION_CRIPPLING", *notched = "NOTCHED_LAMINATE_STRENGTH",
             *impact = "IMPACT_LAMINATE_STRENGTH";
  // LAMINATE_STIFFNESS zeroes [A], [B], [D] and the constants; the other
  // stiffness entry point also the flag, [D*] and the ply count.
  std::vector<std::pair<std::size_t, float>> zeroed, bi_zeroed;
  for (std::size_t i : {9, 10, 11, 13, 14, 15, 16, 17, 18, 19, 20}) zeroed.push_back({i, 0});
  for (std::size_t i = 15; i < 29; ++i) bi_zeroed.push_back({i, 0});
  static const std::vector<Refusal> rows = {
    {stiffness, [](A& a) { a.set(0, 0, 0.99e-5f); }, 1, "", zeroed},
    {"LAMINATE_STIFFNESS_PACKED", [](A& a) { a.set(0, 0, 3); }, 3, ""},
    {"LAMINATE_STIFFNESS_PACKED", [](A& a) { a.set(0, 0, 0); }, 3, ""},
    {stiffness, [](A& a) { a.retext(7, "(0/90)S2"); }, 2, "", zeroed},
    // The material is judged before the layup.
    {stiffness, [](A& a) { a.set(4, 0, -0.1f).retext(7, "(0//90)"); }, 1, "", zeroed},
    {bi_stiffness, [](A& a) { a.set(11, 0, -0.1f); }, 1, "", bi_zeroed},
    {bi_stiffness, [](A& a) { a.retext(14, "(0/90."); }, 2, "", bi_zeroed},
    {"LAMINATE_STRAINS_IN_PLANE", [](A& a) { a.set(3, 0, 1e-7f); }, 1, "",
     {{8, 1e20f}, {9, 1e20f}, {11, 1e20f}, {12, 1e20f}}},
    {"LAMINATE_RECTANGULAR_SS_BUCKLING_RF", [](A& a) { a.set(4, 0, 0.5e-6f); }, 1, "", {{6, 0}}},
    {bi_strength, [](A& a) { a.set(2, 0, -10000.0f); }, 1, "E2 = -10000 is negative"},
    {bi_strength, [](A& a) { a.set(14 + 4, 0, -0.3f); }, 1, "material 2: v12 = -0.3"},
    {bi_strength, [](A& a) { for (int i : {1, 2, 3, 15, 16, 17}) a.set(i, 0, 0.0f); }, 2,
     "Laminate in error"},
    {strength, [](A& a) { a.retext(14, "(0/4x5)S"); }, 2, "at character 4: unreadable ply angle"},
    {strength, [](A& a) { a.retext(15, " Xsai_wu"); }, 3, "criterion \"Xsai_wu\"."},
    {strength, [](A& a) { a.retext(15, "AOSL"); }, 4, "not available"},
    {section, [](A& a) { a.retext(8, "AOSL"); }, 4, "Segment 2: Criterion AOSL not"},
    // A C host's zero byte ends a text.
    {strength, [](A& a) { a[15][0] = '\0'; }, 3, "criterion \"\"."},
    {strength, [](A& a) { a.set(9, 0, 0.0f); }, 5, "F2t missing (material 1"},
    {strength, [](A& a) { a.set(9, 0, 0.0f).set(11, 0, -1.0f); }, 1, "F12 = -1 is negative"},
    {bi_strength, [](A& a) { a.set(14 + 11, 0, 0.0f); }, 5, "F12 missing (material 2"},
    {strength, [](A& a) { a.set(18, 17, kInfinity); }, 6, "Load case 3 "},
    {strength, [](A& a) { a.set(17, 0, -1); }, 7, "-1 is negative"},
    {strength, [](A& a) { a.set(17, 0, 0); }, 0, ""},  // no case: nothing to write
    {bi_strength, [](A& a) { a.retext(29, "TSAI_WU").set(30, 0, 1.0f); }, 9, "Option F12* out"},
    {strength, [](A& a) { a.set(16, 2, -0.1f); }, 9, "Option p- out"},
    {"MATERIAL_DATA", [](A& a) { a.retext(0, "T300/5280"); }, 2,
     "Error! No material \"T300/5280\"; nearest: T300/5208."},
    {"MATERIAL_DATA", [](A& a) { a.retext(1, "/no/such.mat"); }, 1,
     "Error! /no/such.mat: no such file or directory."},
    {"MATERIAL_NAMES", [](A& a) { a.retext(0, " /no/such.mat\r"); }, 1,
     "Error! /no/such.mat: no such file or directory."},
    {bi_deck, [](A& a) { a.set(12 + 9, 0, -1.0f); }, 1, "material 2: F2t = -1 is negative"},
    {deck, [](A& a) { a.retext(12, "(0/4x5)S"); }, 2, "at character 4: unreadable ply angle"},
    {bi_deck, [](A& a) { a.set(7, 0, kInfinity); }, 3, "not finite"},
    {section, [](A& a) { a.set(1, 14 + 2, -1.0f); }, 1, "ply material 2: E2 = -1"},
    {section, [](A& a) { a[7][1000 + 3] = 'x'; }, 2, "Segment 2: layup refused at"},
    {section, [](A& a) { a[8][1] = 'X'; }, 3, "criterion \"PXCK\"."},
    {section, [](A& a) { a.set(1, 14 + 10, 0.0f); }, 5, "Segment 2: F2c missing (criterion"},
    {section, [](A& a) { a.set(4, 0, 0); }, 6, "Segment 1: edge condition 0"},
    {section, [](A& a) { a.set(5, 2, 3); }, 6, "Segment 3: material 3 is not one of 1 to 2"},
    {section, [](A& a) { a.set(0, 0, 1).set(2, 0, 0); }, 7, "segments 0 is below 1"},
    {section, [](A& a) { a.set(0, 0, -1); }, 7, "materials -1 is below 1"},
    {section, [](A& a) { a.set(11, 0, 0.0f); }, 10, "fixity coefficient 0"},
    {section, [](A& a) { a.set(3, 0, 1e30f); }, 12, "single precision"},
    {notched, [](A& a) { a.set(4, 0, -0.3f); }, 1, "v12 = -0.3 is negative"},
    {impact, [](A& a) { a.retext(8, "(0/4x5)S"); }, 2, "character 4"},
    {notched, [](A& a) { a.retext(9, "OHX"); }, 3, "check \"OHX\""},
    {notched, [](A& a) { a.retext(7, ""); }, 5, "a0oht missing (material 1, criterion OHT)"},
    {impact, [](A& a) { a.retext(7, "CAIH=0 KFHC"); }, 10, "\"KFHC\""},  // CAIH=0 ignored
    {notched, [](A& a) { a.set(13, 1, kInfinity); }, 6, "Load case 2 "},
    {notched, [](A& a) { a.set(11, 0, -1); }, 7, "-1 is negative"},
    {notched, [](A& a) { a.set(11, 0, 0); }, 0, ""},
    {notched, [](A& a) { a.set(10, 0, 0.0f); }, 9, "hole diameter out"},
    {impact, [](A& a) { a.set(10, 0, 0.0f); }, 9, "unit factor out"},
    {impact, [](A& a) { a.retext(9, "CDTM-T05X 1 2 3 4 5"); }, 11,
     "\"CDTM-T05X 1 2 3 4 5\" not usable"},
    {impact, [](A& a) { a.retext(9, "CDTM-T04 0.003 0.5 0.0O4 0.05 1"); }, 11, "not usable"},
    // A negative count writes only the code, as does a count of zero.
    {"PLATE_BUCKLING_LOADS_MANY", [](A& a) { a.set(0, 0, -1); }, 2, ""},
    {"PLATE_BUCKLING_RF_MANY", [](A& a) { a.set(0, 0, INT32_MIN); }, 2, ""},
    {"SHELL_BUCKLING_LOADS_MANY", [](A& a) { a.set(0, 0, -1); }, 2, ""},
    {"STRAINS_IN_PLANE_MANY", [](A& a) { a.set(0, 0, 0); }, 0, ""},
  };
  return rows;
}
// clang-format on

}  // namespace corvane::testing
