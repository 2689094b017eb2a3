// MATERIAL_DATA and MATERIAL_NAMES over arbitrary material data: the bytes up to
// the first line feed are the name asked for, the rest the text of a material
// file, written to a scratch file of this process that the calls search alone.
#include <unistd.h>

#include <fstream>
#include <string_view>

#include "corvane/corvane_strength.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  // Only the scratch file: no material files of the machine.
  setenv("BASES_DATOS", "", 1);
  setenv("PATH", "", 1);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::size_t split = input.find('\n');
  std::string name(input.substr(0, split == std::string_view::npos ? 0 : split));
  const std::string path =
      "/tmp/corvane_fuzz_material_" + std::to_string(getpid()) + ".mat";
  std::ofstream(path, std::ios::binary)
      << input.substr(split == std::string_view::npos ? 0 : split + 1);
  name.resize(CORVANE_MATERIAL_NAME_LENGTH, ' ');
  std::string places = path, installed, found(CORVANE_MATERIAL_NAME_LENGTH, '-'),
              file(CORVANE_MATERIAL_PATH_LENGTH, '-'),
              names(CORVANE_MATERIAL_NAMES_LENGTH, '-'),
              message(CORVANE_STRENGTH_MESSAGE_LENGTH, '-');
  places.resize(CORVANE_MATERIAL_PLACES_LENGTH, ' ');
  installed.resize(CORVANE_MATERIAL_PATH_LENGTH, ' ');
  float values[CORVANE_MATERIAL_VALUES];
  for (float& v : values) v = -1.0f;
  int32_t fabric = 7, line = 7, count = 7, ierr = 7;
  MATERIAL_DATA(name.data(), 1, places.data(), 2, installed.data(), 3, values, &fabric,
                found.data(), 4, file.data(), 5, &line, message.data(), 6, &ierr);
  // A refusal says why and writes nothing else; a material found is valid.
  corvane::fuzz::require(ierr >= 0 && ierr <= 2 &&
                         corvane::fuzz::says_why(message, ierr));
  const bool untouched =
      fabric == 7 && line == 7 && values[0] == -1.0f && found[0] == '-' && file[0] == '-';
  corvane::fuzz::require(ierr != 0 ? untouched : line >= 1 && values[0] >= 1.0e-5f);
  MATERIAL_NAMES(places.data(), 1, installed.data(), 2, &count, names.data(), 3,
                 message.data(), 4, &ierr);
  corvane::fuzz::require(ierr >= 0 && ierr <= 1 &&
                         (ierr == 0) == (count >= 0 && names[0] != '-'));
  return 0;
}
