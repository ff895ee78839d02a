#pragma once

#include <filesystem>
#include <functional>
#include <memory>

#include "desktop/message_box.h"
#include "platform/platform.h"

namespace quorval {

class HelpWindow;

// The machine by Qt.  Settings are kept in a file of the user's, and nothing else is.
class QtPlatform : public Platform, private BoxHelp {
 public:
  // Help files are looked for in `help_folder`.
  explicit QtPlatform(const std::filesystem::path& help_folder);
  ~QtPlatform() override;

  // Where the notices of a command are shown: nowhere, until somebody shows them.
  void ShowNoticesBy(std::function<void(const Notices&)> show) { show_notices_ = std::move(show); }

  Answer Show(const MessageBox& box) override;
  void ShowNotices(const Notices& notices) override {
    if (show_notices_) show_notices_(notices);
  }
  void ShowWaitPointer(bool on) override;
  std::optional<std::filesystem::path> AskOpen(const FileQuestion& question) override;
  std::optional<std::filesystem::path> AskSave(const FileQuestion& question) override;
  bool Print(std::span<const PrintJob> jobs) override;
  bool WritePicture(const Plot& plot, const std::filesystem::path& path) override;
  bool KeepPicture(std::string_view svg, const std::filesystem::path& path) override;
  bool KeepPlot(const Plot& plot, const std::filesystem::path& path) override {
    return WritePicture(plot, path);
  }
  std::optional<int> Setting(std::string_view key) override;
  void SetSetting(std::string_view key, int value) override;
  // A folder's contents, a page in it ("DOCQUORVAL.hlp/page.md"), or a single page.
  bool OpenHelp(std::string_view file, bool search) override;

 private:
  HelpWindow& Help();
  bool Tells(const std::string& text) override;
  void ShowEntry(const std::string& text, QWidget& box) override;
  void Release(QWidget& box) override;

  std::filesystem::path help_folder_;
  std::function<void(const Notices&)> show_notices_;
  bool wait_pointer_ = false;
  std::unique_ptr<HelpWindow> help_;
};

}  // namespace quorval
