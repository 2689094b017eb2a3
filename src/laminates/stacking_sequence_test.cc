#include "laminates/stacking_sequence.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "util/number_reading.h"

// The results digest reads random layups (groups, counts, marks, second-material
// plies, too many plies) through the stiffness; these tests pin the rest of the
// syntax and the ply limit.
namespace corvane {
namespace {

using Angles = std::vector<float>;
using Materials = std::vector<std::int32_t>;

// "(a/a/.../a)" with n tokens, then the suffix.
std::string tokens(int n, const std::string& token = "0",
                   const std::string& suffix = "") {
  std::string text = "(";
  for (int i = 0; i < n; ++i) text += (i > 0 ? "/" : "") + token;
  return text + ")" + suffix;
}

// n tokens "0" with "x" in place of the one at the given position (1-based).
std::string bad_token_at(int n, int position) {
  std::string text = tokens(n);
  text[2 * position - 1] = 'x';
  return text;
}

TEST(StackingSequence, AcceptedTexts) {
  const struct {
    std::string text;
    Angles angles;
    Materials materials;
  } cases[] = {
      {"(0/45/90)$", {0, 45, 90, 45, 0}, {1, 1, 1, 1, 1}},
      {"(0/90)2S", {0, 90, 0, 90, 90, 0, 90, 0}, {1, 1, 1, 1, 1, 1, 1, 1}},
      // Second-material plies (a point), mirrored with their index.
      {"(0/45./90)S", {0, 45, 90, 90, 45, 0}, {1, 2, 1, 1, 2, 1}},
      {"(-45./.5)2", {-45, 0.5f, -45, 0.5f}, {2, 1, 2, 1}},
      // Blanks around the tokens and the separators.
      {"( 0 / -22.5 /45. )", {0, -22.5f, 45}, {1, 1, 2}},
      // Any single real: sign, exponent in E or D form.
      {"(+1.5e1/-3D1/2.5E-1)", {15, -30, 0.25f}, {1, 1, 1}},
      // A host's 1000-character text, blank padded or ending at a zero byte.
      {"(0/45./90)S" + std::string(989, ' '), {0, 45, 90, 90, 45, 0}, {1, 2, 1, 1, 2, 1}},
      {std::string("(0/45./90)S\0/7)2", 16) + std::string(984, '\0'),
       {0, 45, 90, 90, 45, 0},
       {1, 2, 1, 1, 2, 1}},
  };
  for (const auto& c : cases) {
    Angles angles;
    Materials materials;
    EXPECT_EQ(parse_stacking_sequence(c.text, angles, &materials), kStackingOk) << c.text;
    EXPECT_EQ(angles, c.angles) << c.text;
    EXPECT_EQ(materials, c.materials) << c.text;
    Angles angles_only;
    EXPECT_EQ(parse_stacking_sequence(c.text, angles_only), kStackingOk) << c.text;
    EXPECT_EQ(angles_only, c.angles) << c.text;
  }
}

// Each refusal with its status, a piece of its reason and the character it
// points at (0: none).
TEST(StackingSequence, RefusedTexts) {
  const struct {
    std::string text;
    int status;
    const char* reason;
    std::size_t position;
  } cases[] = {
      {"", kStackingSyntax, "shorter than 3 characters", 0},
      {"()", kStackingSyntax, "shorter than 3 characters", 0},
      {"(0/90", kStackingSyntax, "no \")\"", 0},
      {"0/90)S", kStackingSyntax, "does not begin with \"(\"", 1},
      {"0/90)2", kStackingSyntax, "", 1},  // no group to repeat
      {"(0/90)X", kStackingSyntax, "unreadable ending", 7},
      {"(0/90)s", kStackingSyntax, "", 7},  // marks are case sensitive
      {"()S", kStackingSyntax, "no ply listed", 3},
      {"(0/90)0", kStackingSyntax, "", 7},  // no group left, as a negative count
      {"(0/90)0S", kStackingSyntax, "repeat count below 1", 7},
      // The readers' statuses pass through.
      {"(0/90)S2", kReadBadSyntax, "unreadable ending", 7},
      {"(0/90) S", kReadBadSyntax, "", 7},
      {"(0/90)99999999999", kReadOutOfRange, "repeat count out of range", 7},
      {"(0//90)", kReadBadSyntax, "empty ply angle", 4},
      {"  (0//90)", kReadBadSyntax, "empty ply angle", 6},
      {"(0/90/)2", kReadBadSyntax, "empty ply angle", 7},
      {"(0 90)", kReadBadSyntax, "", 2},   // two numbers in one token
      {"(0/90))", kReadBadSyntax, "", 4},  // ")" kept as a mark joins the last token
      {"(0/90)2)", kReadBadSyntax, "unreadable ply angle", 4},
      {"(0/4x5)S", kReadBadSyntax, "unreadable ply angle", 4},
      {"(1e39)", kReadOutOfRange, "", 2},
      {"(0/1D40)", kReadOutOfRange, "ply angle out of range", 4},
      {"()2", kReadBadSyntax, "", 2},  // the copies of an empty group are empty tokens
      {"(0/90)64S", kStackingTooManyPlies, "more than 255 plies", 0},
  };
  for (const auto& c : cases) {
    // Stale content is released even though the parse fails.
    Angles angles = {1, 2};
    Materials materials = {1, 2};
    StackingRefusal refusal;
    EXPECT_EQ(parse_stacking_sequence(c.text, angles, &materials, &refusal), c.status)
        << c.text;
    EXPECT_EQ(refusal.status, c.status) << c.text;
    EXPECT_NE(refusal.reason.find(c.reason), std::string::npos) << refusal.reason;
    EXPECT_EQ(refusal.position, c.position) << c.text;
    EXPECT_TRUE(angles.empty() && materials.empty()) << c.text;
  }
}

TEST(StackingSequence, PlyLimit) {
  const struct {
    std::string what, text;
    int status;
    std::size_t plies;
  } cases[] = {
      {"255 tokens", tokens(255), kStackingOk, 255},
      {"256 tokens", tokens(256), kStackingTooManyPlies, 0},
      {"127 tokens S", tokens(127, "0", "S"), kStackingOk, 254},
      {"128 tokens S", tokens(128, "0", "S"), kStackingTooManyPlies, 0},
      {"128 tokens $", tokens(128, "0", "$"), kStackingOk, 255},
      {"4 x 63", "(0/45/-45/90)63", kStackingOk, 252},
      {"4 x 64", "(0/45/-45/90)64", kStackingTooManyPlies, 0},
      {"2 x 64 $", "(0/90)64$", kStackingOk, 255},
      {"2 x 64 S", "(0/90)64S", kStackingTooManyPlies, 0},
      // A huge count is refused without being expanded.
      {"huge count", "(0)2147483647", kStackingTooManyPlies, 0},
      // A bad token among the first plies is met before the limit...
      {"bad first token, huge count", "(x)2000000000", kReadBadSyntax, 0},
      {"bad 255th of 300", bad_token_at(300, 255), kReadBadSyntax, 0},
      // ...one past the 255th is not read: the limit is met first.
      {"bad 256th of 300", bad_token_at(300, 256), kStackingTooManyPlies, 0},
  };
  for (const auto& c : cases) {
    Angles angles;
    Materials materials;
    EXPECT_EQ(parse_stacking_sequence(c.text, angles, &materials), c.status) << c.what;
    EXPECT_EQ(angles.size(), c.plies) << c.what;
    EXPECT_EQ(materials.size(), c.plies) << c.what;
  }
}

}  // namespace
}  // namespace corvane
