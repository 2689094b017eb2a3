// For the tests: the built shared library loaded the way a host loads it, by
// path, its entry points looked up by their exported names.
#pragma once

#include <dlfcn.h>

#include <stdexcept>
#include <string>

#include "corvane/corvane.h"

namespace corvane {

class LoadedLibrary {
 public:
  explicit LoadedLibrary(const char* path)
      : handle_(dlopen(path, RTLD_NOW | RTLD_LOCAL)) {
    if (handle_ == nullptr) throw std::runtime_error(dlerror());
  }
  ~LoadedLibrary() { dlclose(handle_); }
  LoadedLibrary(const LoadedLibrary&) = delete;
  LoadedLibrary& operator=(const LoadedLibrary&) = delete;

  // The exported function of that name, typed after its declaration in the
  // public header; throws when the library does not export it.
  template <typename Function>
  Function* entry(const char* name) const {
    void* symbol = dlsym(handle_, name);
    if (symbol == nullptr) throw std::runtime_error(std::string("not exported: ") + name);
    return reinterpret_cast<Function*>(symbol);
  }

 private:
  void* handle_;
};

// The library under test; its path comes from the build.
inline const LoadedLibrary& library_under_test() {
  static const LoadedLibrary library(CORVANE_LIBRARY);
  return library;
}

}  // namespace corvane
