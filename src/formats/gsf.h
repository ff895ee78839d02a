// libgsf's objects as owners, and the reading and writing of its streams.
#pragma once

#include <gsf/gsf-output-memory.h>
#include <gsf/gsf.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "formats/file_error.h"

namespace quorval::gsf {

struct Release {
  template <class Object>
  void operator()(Object* object) const {
    g_object_unref(object);
  }
};
template <class Object>
using Owner = std::unique_ptr<Object, Release>;

// To be called before anything else of the library.  What it would print of damaged files is said
// by FileErrors; neither standard output nor standard error must hold it.
inline void Start() {
  static const bool started = [] {
    gsf_init();
    for (const char* part : {static_cast<const char*>(nullptr), "GLib", "GLib-GObject", "GLib-GIO",
                             "libgsf", "libgsf:msole", "libgsf:zip", "libgsf:open_pkg"})
      g_log_set_handler(
          part, G_LOG_LEVEL_MASK, [](auto...) {}, nullptr);
    g_set_print_handler([](auto...) {});
    g_set_printerr_handler([](auto...) {});
    return true;
  }();
  static_cast<void>(started);
}

[[noreturn]] inline void Throw(GError* error) {
  const std::string words = error != nullptr ? error->message : "the file cannot be used";
  if (error != nullptr) g_error_free(error);
  throw FileError(words);
}

inline Owner<GsfInput> OpenFile(const std::filesystem::path& path) {
  Start();
  GError* error = nullptr;
  Owner<GsfInput> input(gsf_input_stdio_new(path.c_str(), &error));
  if (!input) Throw(error);
  return input;
}

// All bytes of a stream.
inline std::string ReadAll(const Owner<GsfInput>& input) {
  std::string bytes(static_cast<std::size_t>(gsf_input_size(input.get())), '\0');
  if (!bytes.empty() &&
      gsf_input_read(input.get(), bytes.size(), reinterpret_cast<guint8*>(bytes.data())) == nullptr)
    throw FileError("the file is damaged");
  return bytes;
}

// A file in memory: the library's files on a disk keep their errors to themselves.
inline Owner<GsfOutput> NewOutput() {
  Start();
  return Owner<GsfOutput>(gsf_output_memory_new());
}

// What was written to it; lives as long as it does.
inline std::string_view BytesOf(const Owner<GsfOutput>& output) {
  const guint8* const bytes = gsf_output_memory_get_bytes(GSF_OUTPUT_MEMORY(output.get()));
  return {reinterpret_cast<const char*>(bytes),
          static_cast<std::size_t>(gsf_output_size(output.get()))};
}

[[noreturn]] inline void FailToWrite() { throw FileError("there is not enough memory"); }

inline void Write(const Owner<GsfOutput>& output, std::string_view bytes) {
  if (!gsf_output_write(output.get(), bytes.size(), reinterpret_cast<const guint8*>(bytes.data())))
    FailToWrite();
}

// A container closes the file that it is written to.
inline void Close(const Owner<GsfOutput>& output) {
  if (!gsf_output_is_closed(output.get()) && !gsf_output_close(output.get())) FailToWrite();
}

}  // namespace quorval::gsf
