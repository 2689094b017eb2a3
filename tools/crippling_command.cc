// corvane crippling: the crippling stress and load of a section of laminate
// segments, its EA and its Johnson-Euler column allowable, through the core's
// CRIPPLINGSECTION.
#include <cctype>
#include <cmath>
#include <fstream>
#include <iomanip>
#include <ostream>
#include <sstream>
#include <vector>

#include "command_line.h"
#include "commands.h"
#include "crippling_sections/crippling_section.h"
#include "laminas/criterion_code.h"
#include "laminates/stacking_sequence.h"
#include "laminates_stressed/laminate_stressed.h"
#include "number_text.h"
#include "ply_strengths.h"
#include "util/keywords.h"

namespace corvane::cli {
namespace {

// One segment as written: its layup and the core's segment without laminate.
struct SegmentInput {
  std::string layup{kDefaultLayup};
  SectionSegment segment;
};

// A segment written wrongly, with the words saying why.
struct SegmentError {
  std::string message;
};

constexpr std::string_view kSegmentKeys = "b (or width), edge, layup, y, z, angle, fcu";

EdgeCondition edge_of(std::string_view text) {
  const std::string key = normalize_keyword(text);
  if (key == "OEF" || key == "1" || key == "ONE_EDGE_FREE") {
    return EdgeCondition::one_edge_free;
  }
  if (key == "NEF" || key == "2" || key == "NO_EDGE_FREE")
    return EdgeCondition::no_edge_free;
  throw SegmentError{"edge \"" + std::string(text) + "\" is neither OEF nor NEF"};
}

float real_of(std::string_view key, std::string_view text) {
  float value = 0.0f;
  if (std::string why = parse_real(text, value); !why.empty()) {
    throw SegmentError{std::string(key) + ": " + why};
  }
  return value;
}

void set_field(SegmentInput& input, std::string_view key, std::string_view value, bool& b,
               bool& edge) {
  const std::string k = normalize_keyword(key);
  SectionSegment& s = input.segment;
  if (k == "B" || k == "WIDTH") {
    s.width = real_of(key, value);
    b = true;
  } else if (k == "EDGE") {
    s.edge = edge_of(value);
    edge = true;
  } else if (k == "LAYUP") {
    input.layup = std::string(value);
  } else if (k == "Y") {
    s.y = real_of(key, value);
  } else if (k == "Z") {
    s.z = real_of(key, value);
  } else if (k == "ANGLE") {
    s.angle = real_of(key, value);
  } else if (k == "FCU") {
    s.fcu = real_of(key, value);
  } else {
    throw SegmentError{"unknown key \"" + std::string(key) + "\"; the keys are " +
                       std::string(kSegmentKeys)};
  }
}

// "b=20,edge=OEF,layup=(0/45/-45/90)S,y=10,z=20,angle=0,fcu=500": commas or
// blanks between the pairs; b and edge are required.
SegmentInput segment_input(std::string_view text) {
  SegmentInput input;
  bool b = false, edge = false;
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t end = std::min(text.find_first_of(", \t", at), text.size());
    const std::string_view pair = text.substr(at, end - at);
    at = end + 1;
    if (pair.empty()) continue;
    const std::size_t equals = pair.find('=');
    if (equals == std::string_view::npos) {
      throw SegmentError{"\"" + std::string(pair) + "\" is not key=value"};
    }
    set_field(input, pair.substr(0, equals), pair.substr(equals + 1), b, edge);
  }
  if (!b || !edge) throw SegmentError{"a segment needs b= and edge="};
  return input;
}

// A section file: JSON (an array of segment objects, or an object whose
// "segments" holds one) with the keys of --segment, or text of one segment a
// line as --segment writes it ('#' begins a comment).
std::vector<SegmentInput> read_section(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::stringstream buffer;
  buffer << file.rdbuf();
  if (!file) throw SegmentError{"cannot read the section from " + path};
  const std::string text = buffer.str();
  std::vector<SegmentInput> inputs;
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  if (first != std::string::npos && (text[first] == '{' || text[first] == '[')) {
    const Json json = Json::parse(text, nullptr, false);
    if (json.is_discarded()) throw SegmentError{path + ": not valid JSON"};
    const Json& list =
        json.is_object() && json.contains("segments") ? json["segments"] : json;
    if (!list.is_array()) throw SegmentError{path + ": no array of segments"};
    for (std::size_t i = 0; i < list.size(); ++i) {
      const std::string where = path + " segment " + std::to_string(i + 1) + ": ";
      if (!list[i].is_object()) throw SegmentError{where + "not an object"};
      SegmentInput input;
      bool b = false, edge = false;
      try {
        for (const auto& [key, value] : list[i].items()) {
          const std::string v =
              value.is_string() ? value.get<std::string>() : value.dump();
          set_field(input, key, v, b, edge);
        }
        if (!b || !edge) throw SegmentError{"a segment needs b and edge"};
      } catch (const SegmentError& e) {
        throw SegmentError{where + e.message};
      }
      inputs.push_back(input);
    }
    return inputs;
  }
  std::istringstream lines(text);
  std::size_t number = 0;
  for (std::string line; std::getline(lines, line);) {
    ++number;
    line = line.substr(0, line.find('#'));
    if (line.find_first_not_of(" \t\r") == std::string::npos) continue;
    try {
      inputs.push_back(segment_input(line));
    } catch (const SegmentError& e) {
      throw SegmentError{path + " line " + std::to_string(number) + ": " + e.message};
    }
  }
  return inputs;
}

std::string error_meaning(CripplingError error) {
  switch (error) {
    case CripplingError::none:
      return "success";
    case CripplingError::invalid_material:
      return "invalid ply material";
    case CripplingError::laminate_in_error:
      return "layup refused or laminate unusable";
    case CripplingError::unknown_criterion:
      return "unknown criterion";
    case CripplingError::criterion_not_available:
      return "criterion not available";
    case CripplingError::strength_missing:
      return "strength missing";
    case CripplingError::bad_segment:
      return "segment refused";
    case CripplingError::bad_count:
      return "no segment";
    case CripplingError::out_of_memory:
      return "memory exhausted";
    case CripplingError::bad_option:
      return "option out of range";
    case CripplingError::bad_column:
      return "length or fixity refused";
    case CripplingError::no_compression_failure:
      return "no compression failure";
    case CripplingError::out_of_range:
      return "result beyond single precision";
  }
  return "unknown error";
}

std::string warning_words(const SegmentCrippling& c, EdgeCondition edge) {
  if (c.warning == RangeWarning::none) return {};
  const BtRange range = fitted_range(edge);
  return std::string(c.warning == RangeWarning::below ? "b/t below " : "b/t above ") +
         format_general(range.low) + "-" + format_general(range.high);
}

class CripplingCommand : public Command {
 public:
  explicit CripplingCommand(CLI::App& program) {
    app_ = program.add_subcommand(
        "crippling",
        "Crippling stress and load of a section of laminate segments, its EA and its "
        "column allowable");
    app_->add_option("--segment", segments_,
                     "a segment: b=WIDTH,edge=OEF|NEF[,layup=LAYUP][,y=Y,z=Z,angle=DEG]"
                     "[,fcu=STRESS]; repeat it for each segment")
        ->allow_extra_args(false)
        ->type_name("SEGMENT");
    app_->add_option("--section", section_file_,
                     "read the segments from FILE: one --segment text a line, or JSON "
                     "(an array of objects with the same keys)")
        ->type_name("FILE");
    add_real_option(*app_, "--length", length_,
                    "column length L (default 0: the crippling stress alone)");
    add_real_option(*app_, "--fixity", fixity_,
                    "end-fixity coefficient c, L' = L/sqrt(c) (default 1, pinned ends)");
    app_->add_option(
            "--criterion", criterion_,
            "criterion of the first-ply failure that gives Fcu where fcu= is not "
            "given (default PUCK)")
        ->type_name("NAME");
    add_real_option(*app_, "--f12-star", f12_star_,
                    "Tsai-Wu interaction term F12*, in (-1, 1) (default -0.5)");
    add_real_option(*app_, "--puck-p-plus", p_plus_,
                    "Puck's inclination p+ in [0, 1) (default 0.35, carbon)");
    add_real_option(*app_, "--puck-p-minus", p_minus_,
                    "Puck's inclination p- in [0, 1) (default 0.30, carbon)");
    app_->add_flag("--json", json_, "print the results as JSON");
    for (std::size_t k = 0; k < kMaterialFields.size(); ++k) {
      const MaterialField& field = kMaterialFields[k];
      material_[k] =
          add_real_option(*app_, "--" + std::string(field.option), material_text_[k],
                          std::string(field.meaning) + " (default " +
                              format_general(kBuiltInTape.*field.value) + ")");
      material_[k]->group("Ply material of every segment (default: the built-in tape)");
    }
    app_->add_option("--material", material_name_,
                     "the ply material of that name in the material data files, with "
                     "its strengths")
        ->type_name("NAME")
        ->group("Material data files");
    lookup_.add_to(*app_);
    const PlyStrengths built_in = built_in_strengths();
    for (std::size_t k = 0; k < kStrengthFields.size(); ++k) {
      const StrengthField& f = kStrengthFields[k];
      const float value = built_in.*f.value;
      strength_[k] = add_real_option(
          *app_, "--" + std::string(f.option), strength_text_[k],
          std::string(f.meaning) + (std::isnan(value)
                                        ? " (default from F1t, F1c and E1)"
                                        : " (default " + format_general(value) + ")"));
      strength_[k]->group("Ply strengths (default: T300/5208, Tsai and Hahn 1980)");
    }
    app_->footer(
        "b is the centre-line width: from the free edge (OEF) or between the supporting "
        "segments (NEF).\ny, z is the segment's centre and angle the direction of its "
        "width in the section plane;\nthey give the section's least radius of gyration "
        "for the column. The layup defaults to\n" +
        std::string(kDefaultLayup) +
        ". Outside b/t 4-30 (OEF) or 10-50 (NEF) the results stand with a warning.\n"
        "Examples:\n"
        "  corvane crippling --segment b=20,edge=OEF,y=10,z=20 --segment "
        "b=40,edge=NEF,angle=90 \\\n"
        "    --segment b=20,edge=OEF,y=-10,z=-20 --length 300\n"
        "  corvane crippling --section hat.txt --length 600 --fixity 2 --json");
  }

  CLI::App& parser() override { return *app_; }

  int run(std::ostream& out, std::ostream& err) override {
    std::vector<SegmentInput> inputs;
    Output o("crippling", json_, out, err);
    try {
      if (!section_file_.empty()) inputs = read_section(section_file_);
    } catch (const SegmentError& e) {
      return o.fail_plain(e.message);
    }
    for (const std::string& text : segments_) {
      try {
        inputs.push_back(segment_input(text));
      } catch (const SegmentError& e) {
        throw UsageError{"--segment " + text + ": " + e.message};
      }
    }
    if (inputs.empty()) throw UsageError{"give the segments with --segment or --section"};

    Json& input = o.input();
    const std::int32_t code = criterion_code(criterion_);
    input["criterion"] = criterion_;
    if (code == kNoCriterion) {
      return o.fail(static_cast<std::int32_t>(CripplingError::unknown_criterion),
                    error_meaning(CripplingError::unknown_criterion),
                    "unknown criterion \"" + criterion_ + "\"");
    }
    input["criterion"] = criterion_keyword(code);
    // A named material brings its values and strengths; options given
    // replace them.
    const MaterialEntry* named =
        material_name_.empty() ? nullptr : &lookup_.find(material_name_);
    PlyMaterial material = named ? ply_material(named->lamina) : kBuiltInTape;
    for (std::size_t k = 0; k < kMaterialFields.size(); ++k) {
      if (given(material_[k])) {
        material.*kMaterialFields[k].value = real_value(material_text_[k]);
      }
    }
    PlyStrengths strengths = built_in_strengths();
    if (named) {
      const LAMINA& m = named->lamina;
      strengths = {m.F1t, m.F1c, m.F2t, m.F2c, m.F12, m.uetall, m.uecall};
    }
    for (std::size_t k = 0; k < kStrengthFields.size(); ++k) {
      if (given(strength_[k])) {
        strengths.*kStrengthFields[k].value = real_value(strength_text_[k]);
      }
    }
    std::string fault = material_problem(material);
    if (fault.empty()) fault = negative_strength(strengths);
    if (!fault.empty()) {
      return o.fail(1, error_meaning(CripplingError::invalid_material), fault);
    }
    const LAMINA ply = lamina(material, strengths);
    input["material"] = material_json(material);
    if (named) input["material"]["name"] = named->lamina.Name;
    for (const StrengthField& f : kStrengthFields) {
      input["material"][std::string(f.option)] = json_real(ply.*f.member);
    }

    std::vector<LAMINATESTRESSED> laminates;
    laminates.reserve(inputs.size());  // the segments point into it
    CRIPPLINGSECTION section;
    section.criterion = code;
    if (!f12_star_.empty()) section.options.tsai_wu_f12_star = real_value(f12_star_);
    if (!p_plus_.empty()) section.options.puck.p_plus = real_value(p_plus_);
    if (!p_minus_.empty()) section.options.puck.p_minus = real_value(p_minus_);
    if (!length_.empty()) section.column.length = real_value(length_);
    if (!fixity_.empty()) section.column.fixity = real_value(fixity_);
    input["column"] = {{"length", json_real(section.column.length)},
                       {"fixity", json_real(section.column.fixity)}};
    Json& segments = input["segments"] = Json::array();
    for (const SegmentInput& one : inputs) {
      const SectionSegment& s = one.segment;
      segments.push_back({{"width", json_real(s.width)},
                          {"edge", edge_condition_name(s.edge)},
                          {"layup", one.layup},
                          {"y", json_real(s.y)},
                          {"z", json_real(s.z)},
                          {"angle", json_real(s.angle)},
                          {"fcu", json_real(s.fcu)}});
    }
    for (std::size_t i = 0; i < inputs.size(); ++i) {
      std::vector<float> angles;
      if (parse_stacking_sequence(inputs[i].layup, angles) != kStackingOk) {
        return o.fail(
            static_cast<std::int32_t>(CripplingError::laminate_in_error),
            error_meaning(CripplingError::laminate_in_error),
            "segment " + std::to_string(i + 1) + ": " + layup_problem(inputs[i].layup));
      }
      laminates.emplace_back(ply, angles);
      section.segments.push_back(inputs[i].segment);
      section.segments.back().laminate = &laminates.back();
    }
    SectionCrippling r;
    if (const CripplingStatus status = section.analyse(r); !status.ok()) {
      std::string words = status.message();
      words.erase(0, 7);  // "Error! "
      words.pop_back();   // the full stop
      if (!words.empty()) words[0] = static_cast<char>(std::tolower(words[0]));
      return o.fail(static_cast<std::int32_t>(status.error), error_meaning(status.error),
                    words);
    }

    std::vector<std::string> warnings;
    for (std::size_t i = 0; i < inputs.size(); ++i) {
      if (const std::string w = warning_words(r.segments[i], inputs[i].segment.edge);
          !w.empty()) {
        warnings.push_back("segment " + std::to_string(i + 1) + ": " + w + " (" +
                           std::string(edge_condition_name(inputs[i].segment.edge)) +
                           " crippling relation fitted there): result extrapolated");
      }
    }
    for (const std::string& w : warnings) o.warning(w);
    if (json_) return print_json(o, section, r, warnings);
    print_text(out, inputs, section, r, material, ply);
    return kExitOk;
  }

 private:
  static void print_text(std::ostream& out, const std::vector<SegmentInput>& inputs,
                         const CRIPPLINGSECTION& section, const SectionCrippling& r,
                         const PlyMaterial& material, const LAMINA& ply) {
    out << "Section of " << inputs.size() << " segment" << (inputs.size() == 1 ? "" : "s")
        << "; Fcu where not given: first-ply failure under compression by "
        << criterion_keyword(section.criterion) << '\n'
        << "Material:   " << material_line(material) << '\n'
        << "Strengths:  " << strength_line(ply) << "\n\n";
    out << " Seg Edge        b        y        z    angle Layup                      t"
           "      b/t          Ex         Fcu Fcu from                    Fcc  Note\n";
    for (std::size_t i = 0; i < inputs.size(); ++i) {
      const SectionSegment& s = section.segments[i];
      const SegmentCrippling& c = r.segments[i];
      const std::string from = c.fcu_given
                                   ? "given"
                                   : std::string(criterion_keyword(section.criterion)) +
                                         " " + std::string(failure_mode_name(c.fcu_mode));
      std::string note = warning_words(c, s.edge);
      if (c.capped) note = note.empty() ? "Fcc = Fcu" : "Fcc = Fcu, " + note;
      out << std::setw(4) << i + 1 << ' ' << std::left << std::setw(4)
          << edge_condition_name(s.edge) << std::right << std::setw(9)
          << format_general(s.width) << std::setw(9) << format_general(s.y)
          << std::setw(9) << format_general(s.z) << std::setw(9)
          << format_general(s.angle) << ' ' << std::left << std::setw(20)
          << inputs[i].layup << std::right << std::setw(7) << format_general(c.thickness)
          << std::setw(9) << format_general(c.b_over_t) << std::setw(12)
          << format_general(c.ex) << std::setw(12) << format_general(c.fcu) << ' '
          << std::left << std::setw(22) << from << std::right << std::setw(11)
          << format_general(c.fcc) << (note.empty() ? "" : "  " + note) << '\n';
    }
    out << '\n';
    const int w = 18;
    print_value(out, "A", r.area, w);
    print_value(out, "EA", r.ea, w);
    print_value(out, "Fcc (section)", r.fcc, w);
    print_value(out, "Pcc", r.pcc, w);
    print_value(out, "centroid y", r.yc, w);
    print_value(out, "centroid z", r.zc, w);
    print_value(out, "EI_min", r.ei_min, w);
    print_value(out, "rho", r.rho, w);
    print_value(out, "E = EA/A", r.modulus, w);
    print_value(out, "L", section.column.length, w);
    print_value(out, "c", section.column.fixity, w);
    print_value(out, "L' = L/sqrt(c)", r.effective_length, w);
    print_value(out, "L'/rho", r.slenderness, w);
    print_value(out, "L'/rho at tangency", r.transition, w);
    out << std::left << std::setw(w) << "Column" << std::right << " = "
        << column_mode_name(r.column) << '\n';
    print_value(out, "F column", r.column_stress, w);
    print_value(out, "P column", r.column_load, w);
  }

  static int print_json(Output& o, const CRIPPLINGSECTION& section,
                        const SectionCrippling& r,
                        const std::vector<std::string>& warnings) {
    Json& data = o.results();
    Json& segments = data["segments"] = Json::array();
    for (std::size_t i = 0; i < section.segments.size(); ++i) {
      const SegmentCrippling& c = r.segments[i];
      segments.push_back({{"thickness", json_real(c.thickness)},
                          {"b_over_t", json_real(c.b_over_t)},
                          {"e_x", json_real(c.ex)},
                          {"fcu", json_real(c.fcu)},
                          {"fcu_given", c.fcu_given},
                          {"fcu_mode", failure_mode_name(c.fcu_mode)},
                          {"fcc", json_real(c.fcc)},
                          {"capped", c.capped},
                          {"warning", static_cast<std::int32_t>(c.warning)}});
    }
    data["section"] = {{"area", json_real(r.area)},
                       {"ea", json_real(r.ea)},
                       {"fcc", json_real(r.fcc)},
                       {"pcc", json_real(r.pcc)},
                       {"centroid", {json_real(r.yc), json_real(r.zc)}},
                       {"ei_min", json_real(r.ei_min)},
                       {"rho", json_real(r.rho)},
                       {"modulus", json_real(r.modulus)}};
    data["column"] = {{"effective_length", json_real(r.effective_length)},
                      {"slenderness", json_real(r.slenderness)},
                      {"tangency", json_real(r.transition)},
                      {"mode", column_mode_name(r.column)},
                      {"stress", json_real(r.column_stress)},
                      {"load", json_real(r.column_load)}};
    data["warnings"] = warnings;
    return o.finish();
  }

  CLI::App* app_ = nullptr;
  std::vector<std::string> segments_;
  std::string section_file_, length_, fixity_, criterion_ = "PUCK";
  std::string f12_star_, p_plus_, p_minus_;
  std::array<std::string, 7> material_text_, strength_text_;
  std::array<CLI::Option*, 7> material_{}, strength_{};
  std::string material_name_;
  MaterialLookup lookup_;
  bool json_ = false;
};

}  // namespace

std::unique_ptr<Command> add_crippling_command(CLI::App& program) {
  return std::make_unique<CripplingCommand>(program);
}

}  // namespace corvane::cli
