#include "batch/program.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <sstream>

#include "support/temporary_folder.h"

namespace quorval::test {
namespace {

void SendTo(const std::string& file, int descriptor) {
  const int opened = open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  if (opened < 0 || dup2(opened, descriptor) < 0) _exit(126);
}

[[noreturn]] void BecomeProgram(const Arguments& arguments, const std::string& out,
                                const std::string& err) {
  SendTo(out, STDOUT_FILENO);
  SendTo(err, STDERR_FILENO);
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) unsetenv(name);
  std::vector<char*> words{const_cast<char*>(QUORVAL_BATCH)};
  for (const std::string& argument : arguments)
    words.push_back(const_cast<char*>(argument.c_str()));
  words.push_back(nullptr);
  execv(QUORVAL_BATCH, words.data());
  _exit(127);
}

}  // namespace

Ended RunProgram(const Arguments& arguments) {
  const TemporaryFolder folder;
  const std::string out = folder / "out";
  const std::string err = folder / "err";
  const pid_t child = fork();
  if (child == 0) BecomeProgram(arguments, out, err);
  int state = 0;
  waitpid(child, &state, 0);
  return {WIFEXITED(state) ? WEXITSTATUS(state) : -1, BytesOf(out), BytesOf(err)};
}

Answered RunForJson(Arguments arguments) {
  arguments.insert(arguments.end(), {"--json", "-"});
  const Ended ended = RunProgram(arguments);
  return {ended.status, ended.err, nlohmann::ordered_json::parse(ended.out)};
}

std::string MessageLines(const std::vector<std::string>& texts) {
  std::string lines;
  for (const std::string& text : texts) lines += "message: " + text + "\n";
  return lines;
}

std::string MessagesIn(const std::string& err) {
  std::istringstream lines(err);
  std::string messages;
  for (std::string line; std::getline(lines, line);)
    if (line.starts_with("message: ")) messages += line + "\n";
  return messages;
}

}  // namespace quorval::test
