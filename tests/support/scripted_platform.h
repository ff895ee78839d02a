// A machine without a screen: it records what it is asked to show and answers from a list.
#pragma once

#include <deque>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/platform.h"

namespace quorval::test {

struct ScriptedPlatform : Platform {
  std::vector<std::string> boxes;  // the texts, in order
  std::vector<bool> wait_pointer_at_box;
  std::vector<Notices> notices;             // of each command
  std::deque<Answer> answers;               // of the question boxes; Yes when it runs out
  std::deque<std::filesystem::path> paths;  // of the file dialogs; cancelled when it runs out
  std::vector<FileQuestion> file_questions;
  std::vector<PrintJob> print_jobs;
  std::vector<std::filesystem::path> pictures;
  std::vector<std::string> help_pages;
  std::map<std::string, int, std::less<>> settings;
  bool wait_pointer = false;
  bool works = true;  // printing, pictures and help succeed

  Answer Show(const MessageBox& box) override {
    boxes.push_back(box.text);
    wait_pointer_at_box.push_back(wait_pointer);
    if (box.buttons == Buttons::kOk) return Answer::kOk;
    if (answers.empty()) return Answer::kYes;
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
  }
  void ShowNotices(const Notices& of_command) override { notices.push_back(of_command); }
  void ShowWaitPointer(bool on) override { wait_pointer = on; }
  std::optional<std::filesystem::path> AskOpen(const FileQuestion& question) override {
    return NextPath(question);
  }
  std::optional<std::filesystem::path> AskSave(const FileQuestion& question) override {
    return NextPath(question);
  }
  bool Print(std::span<const PrintJob> jobs) override {
    print_jobs.insert(print_jobs.end(), jobs.begin(), jobs.end());
    return works;
  }
  bool WritePicture(const Plot&, const std::filesystem::path& path) override {
    pictures.push_back(path);
    if (works) std::ofstream(path) << "picture";
    return works;
  }
  std::optional<int> Setting(std::string_view key) override {
    const auto found = settings.find(key);
    return found == settings.end() ? std::nullopt : std::optional(found->second);
  }
  void SetSetting(std::string_view key, int value) override { settings[std::string(key)] = value; }
  bool OpenHelp(std::string_view file, bool) override {
    help_pages.emplace_back(file);
    return works;
  }

 private:
  std::optional<std::filesystem::path> NextPath(const FileQuestion& question) {
    file_questions.push_back(question);
    if (paths.empty()) return std::nullopt;
    const std::filesystem::path path = paths.front();
    paths.pop_front();
    return path;
  }
};

}  // namespace quorval::test
