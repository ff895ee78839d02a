#pragma once

#include <vector>

#include "platform/platform.h"

namespace quorval {

// The machine with nobody before it.  Boxes are kept, and questions answered Yes; no file is
// chosen, nothing is drawn or printed, and nothing kept between runs.
class Unattended : public Platform {
 public:
  const std::vector<MessageBox>& boxes() const { return boxes_; }
  // Of all commands.
  const Notices& notices() const { return notices_; }

  Answer Show(const MessageBox& box) override {
    boxes_.push_back(box);
    return box.buttons == Buttons::kYesNo ? Answer::kYes : Answer::kOk;
  }
  void ShowNotices(const Notices& notices) override {
    notices_.insert(notices_.end(), notices.begin(), notices.end());
  }
  void ShowWaitPointer(bool) override {}
  std::optional<std::filesystem::path> AskOpen(const FileQuestion&) override { return {}; }
  std::optional<std::filesystem::path> AskSave(const FileQuestion&) override { return {}; }
  bool Print(std::span<const PrintJob>) override { return false; }
  bool WritePicture(const Plot&, const std::filesystem::path&) override { return false; }
  std::optional<int> Setting(std::string_view) override { return {}; }
  void SetSetting(std::string_view, int) override {}
  bool OpenHelp(std::string_view, bool) override { return false; }

 private:
  std::vector<MessageBox> boxes_;
  Notices notices_;
};

}  // namespace quorval
