// Places where a file cannot be saved, made for real: by permissions, limits of the process, and
// disks of their own where the user may mount them.
#pragma once

#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "support/temporary_folder.h"

namespace quorval::test {

namespace fs = std::filesystem;

// What holds during a save and no longer.
using Hold = std::shared_ptr<void>;

// A limit of this process: of the bytes of a file, as on a disk that is full, or of open files.
inline Hold Limited(__rlimit_resource what, rlim_t most) {
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(what, &before);
  const rlimit limit{most, before.rlim_max};
  setrlimit(what, &limit);
  return {nullptr, [what, before](void*) { setrlimit(what, &before); }};
}

// Root may do all, so the save is another user's.
inline bool IsRoot() { return geteuid() == 0; }
inline Hold AsNobody() {
  constexpr uid_t kNobody = 65534;
  if (!IsRoot()) return {};
  static_cast<void>(seteuid(kNobody));
  return {nullptr, [](void*) { static_cast<void>(seteuid(0)); }};
}

// A disk of its own below `folder`; false where this user may mount none.
inline bool Mount(const fs::path& folder, const char* options) {
  fs::create_directory(folder);
  return mount("none", folder.c_str(), "tmpfs", 0, options) == 0;
}

// A place that cannot be written, made for the name `name`; an empty path where this machine does
// not let it be made.
struct Obstacle {
  const char* what;
  std::string why;
  std::function<fs::path(const fs::path& folder, const std::string& name)> make;
  std::function<Hold()> hold = [] { return Hold{}; };
};

inline fs::path Precious(const fs::path& at, const std::string& name) {
  WriteBytes(at / name, "precious");
  return at / name;
}

inline fs::path OnDisk(const fs::path& at, const std::string& name, const char* options) {
  return Mount(at / "disk", options) ? Precious(at / "disk", name) : fs::path{};
}

inline const Obstacle kObstacles[] = {
    {"a folder that is gone", "no such file or folder",
     [](const fs::path& at, const std::string& name) { return at / "gone" / name; }},
    {"a folder of that name", "folder",
     [](const fs::path& at, const std::string& name) {
       fs::create_directory(at / name);
       return at / name;
     }},
    {"a protected file", "read-only",
     [](const fs::path& at, const std::string& name) {
       WriteBytes(at / name, "precious");
       chmod((at / name).c_str(), 0444);
       return at / name;
     }},
    {"a pipe", "pipe or a device",
     [](const fs::path& at, const std::string& name) {
       mkfifo((at / name).c_str(), 0600);
       return at / name;
     }},
    {"a device", "pipe or a device",
     [](const fs::path& at, const std::string& name) {
       fs::create_symlink("/dev/null", at / name);
       return at / name;
     }},
    {"a link in a circle", "circle",
     [](const fs::path& at, const std::string& name) {
       fs::create_symlink(name, at / name);
       return at / name;
     }},
    {"a link into a folder that is gone", "no such file or folder",
     [](const fs::path& at, const std::string& name) {
       fs::create_symlink("gone/" + name, at / name);
       return at / name;
     }},
    {"a name too long", "too long",
     [](const fs::path& at, const std::string& name) {
       return at / (std::string(252, 'n') + name);
     }},
    {"a path through a file", "no folder",
     [](const fs::path& at, const std::string& name) {
       WriteBytes(at / "file", "precious");
       return at / "file" / name;
     }},
    {"a folder of that name that is not empty", "folder",
     [](const fs::path& at, const std::string& name) {
       fs::create_directory(at / name);
       Precious(at / name, "file");
       return at / name;
     }},
    {"a link to a folder", "folder",
     [](const fs::path& at, const std::string& name) {
       fs::create_directory(at / "folder");
       fs::create_symlink("folder", at / name);
       return at / name;
     }},
    {"a link to a protected file", "read-only",
     [](const fs::path& at, const std::string& name) {
       chmod(Precious(at, "file").c_str(), 0444);
       fs::create_symlink("file", at / name);
       return at / name;
     }},
    {"a link to a link in a circle", "circle",
     [](const fs::path& at, const std::string& name) {
       fs::create_symlink("one", at / "two");
       fs::create_symlink("two", at / "one");
       fs::create_symlink("one", at / name);
       return at / name;
     }},
    {"a socket", "pipe or a device",
     [](const fs::path& at, const std::string& name) {
       mknod((at / name).c_str(), S_IFSOCK | 0600, 0);
       return at / name;
     }},
    {"a folder within a folder that is gone", "no such file or folder",
     [](const fs::path& at, const std::string& name) { return at / "gone" / ".." / "x" / name; }},
    {"a path too long", "too long",
     [](const fs::path& at, const std::string& name) {
       fs::path path = at;
       for (int i = 0; i < 50; ++i) path /= std::string(100, 'f');
       return path / name;
     }},
    {"a folder of the system", "",
     [](const fs::path&, const std::string& name) { return fs::path("/proc") / name; }},
    {"too many open files", "too many files", Precious, [] { return Limited(RLIMIT_NOFILE, 3); }},
    {"a folder that is protected", "permission",
     [](const fs::path& at, const std::string& name) {
       chmod(at.c_str(), 0555);
       return at / name;
     },
     AsNobody},
    {"a file in a folder that is protected", "",
     [](const fs::path& at, const std::string& name) {
       chmod(Precious(at, name).c_str(), 0666);
       chmod(at.c_str(), 0555);
       return at / name;
     },
     AsNobody},
    {"a folder that may not be entered", "permission",
     [](const fs::path& at, const std::string& name) {
       fs::create_directory(at / "closed");
       chmod(at.c_str(), 0755);
       chmod((at / "closed").c_str(), 0600);
       return at / "closed" / name;
     },
     AsNobody},
    {"a file of another user", "read-only",
     [](const fs::path& at, const std::string& name) {
       if (!IsRoot()) return fs::path{};
       chmod(Precious(at, name).c_str(), 0644);
       chmod(at.c_str(), 0777);
       return at / name;
     },
     AsNobody},
    {"another user's file in a folder for all", "",
     [](const fs::path& at, const std::string& name) {
       if (!IsRoot()) return fs::path{};
       chmod(Precious(at, name).c_str(), 0666);
       chmod(at.c_str(), 01777);
       return at / name;
     },
     AsNobody},
    {"a name that is a step up", "folder",
     [](const fs::path& at, const std::string&) { return at / ".."; }},
    {"a name that is a folder's", "",
     [](const fs::path& at, const std::string&) { return at / ""; }},
    {"a disk without room for a second file", "disk is full",
     [](const fs::path& at, const std::string& name) {
       const fs::path path = OnDisk(at, name, "size=8k");
       if (!path.empty()) WriteBytes(path.parent_path() / "big", std::string(4096, 'x'));
       return path;
     }},
    {"a disk that is read-only", "read-only",
     [](const fs::path& at, const std::string& name) {
       const fs::path path = OnDisk(at, name, "size=1m");
       if (!path.empty())
         mount("none", path.parent_path().c_str(), nullptr, MS_REMOUNT | MS_RDONLY, "");
       return path;
     }},
    {"a disk without room for another name", "disk is full",
     [](const fs::path& at, const std::string& name) { return OnDisk(at, name, "nr_inodes=2"); }},
    {"a disk that is full", "disk is full",
     [](const fs::path& at, const std::string& name) {
       const fs::path path = OnDisk(at, name, "size=64k");
       if (!path.empty()) WriteBytes(path.parent_path() / "big", std::string(1 << 17, 'x'));
       return path;
     }},
    {"no room for a byte", "full|larger", Precious, [] { return Limited(RLIMIT_FSIZE, 0); }},
    {"room for a byte", "full|larger", Precious, [] { return Limited(RLIMIT_FSIZE, 1); }},
    {"room for 100 bytes", "full|larger", Precious, [] { return Limited(RLIMIT_FSIZE, 100); }},
    {"room for 200 bytes", "full|larger", Precious, [] { return Limited(RLIMIT_FSIZE, 200); }},
    {"no room for a new file", "full|larger",
     [](const fs::path& at, const std::string& name) { return at / name; },
     [] { return Limited(RLIMIT_FSIZE, 50); }},
};

}  // namespace quorval::test
