// hang-folder SOURCE MOUNTPOINT SOCKET: the folder SOURCE once more at MOUNTPOINT, as it is, until SOCKET
// says that an operation there waits, hangs or fails: a network drive at its worst, on command. It is mounted
// when the socket answers, and stays in the foreground until it is unmounted or told to end (SIGTERM, SIGINT,
// SIGHUP), which takes the mount away even from under operations that hang.
//
// A line to the socket, and what it does; each is answered {"ok": true}, or {"ok": false, "error": "why"}:
//   {"do": "hang", "at": ["write", "sync"], "path": "*.ACT", "after": 2}     the second such operation and
//   all
//                                                                            later ones wait until "go"
//   {"do": "delay", "at": ["any"], "ms": 200}                                each such operation takes longer
//   {"do": "fail", "at": ["write"], "error": "ENOSPC", "count": 1}           fails once, and is not carried
//   out
//   {"do": "go"}  or  {"do": "go", "error": "EIO"}                           no rules any more; what waits
//   goes
//                                                                            on, or fails
//   {"do": "state"}    {"ok": true, "waiting": [{"operation": "write", "path": "Vintoral.ACT", "ms": 1500}],
//                       "counts": {"open": 3, ...}}
// "path" (a shell pattern, all by default) and "after" (1) go with each rule. The operations:
//   open       open, create          sync       fsync, fdatasync, of files and folders
//   read       read, readlink        rename     rename, link
//   write      write, fallocate, truncate, copy_file_range
//   lock       record locks and whole ones: taking, asking, giving back
//   directory  opendir, readdir, mkdir, rmdir, unlink, symlink
//   stat       looking a name up, getattr, statfs, chmod, chown, utimens
// Closing never waits. Who is killed while he waits dies at once, and his operation is not carried out; other
// signals do not end it, as on a disk. When the last client of the socket leaves, all go on.
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <exception>
#include <thread>

#include "hanging/Control.h"
#include "hanging/Folder.h"

namespace hanging {
namespace {

/// Each operation that hangs holds a thread: more than all that a test can hang at once.
constexpr unsigned kThreads = 400;

void Begin(void*, fuse_conn_info* connection) {
  // As background work the kernel would let only a few of them wait at a time.
  connection->want &= ~static_cast<unsigned>(FUSE_CAP_ASYNC_DIO);
}

fuse_lowlevel_ops Operations() {
  fuse_lowlevel_ops operations{};
  operations.init = Begin;
  NameOperations(operations);
  FileOperations(operations);
  FolderOperations(operations);
  LockOperations(operations);
  return operations;
}

fuse_session* NewSession(Folder& folder, char* program) {
  char option[] = "-o";
  char own[] = "default_permissions,fsname=hang-folder,subtype=hang-folder";
  char shared[] = "default_permissions,fsname=hang-folder,subtype=hang-folder,allow_other";
  char* words[] = {program, option, geteuid() == 0 ? shared : own, nullptr};
  fuse_args arguments = FUSE_ARGS_INIT(3, words);
  const fuse_lowlevel_ops operations = Operations();
  fuse_session* session = fuse_session_new(&arguments, &operations, sizeof(operations), &folder);
  fuse_opt_free_args(&arguments);
  return session;
}

sigset_t Ends() {
  sigset_t ends;
  sigemptyset(&ends);
  for (const int signal : {SIGTERM, SIGINT, SIGHUP})
    sigaddset(&ends, signal);
  return ends;
}

/// Waits for the signal to end. Whatever hangs is left as it is: with this process the connection ends, and
/// the kernel answers for it.
void EndOnSignal(fuse_session* session, const char* point, const Control& control) {
  const sigset_t ends = Ends();
  int signal = 0;
  sigwait(&ends, &signal);
  // Others still read from the session, so it is left alone where that does not need it.
  if (umount2(point, MNT_DETACH) != 0) fuse_session_unmount(session);
  unlink(control.Path().c_str());
  _exit(0);
}

int Serve(fuse_session* session) {
  fuse_loop_config* config = fuse_loop_cfg_create();
  fuse_loop_cfg_set_max_threads(config, kThreads);
  fuse_loop_cfg_set_clone_fd(config, 0);
  const int result = fuse_session_loop_mt(session, config);
  fuse_loop_cfg_destroy(config);
  return result == 0 ? 0 : 1;
}

int Run(char** arguments) {
  umask(0);  // the kernel has taken the program's own off already
  const sigset_t ends = Ends();
  pthread_sigmask(SIG_BLOCK, &ends, nullptr);
  static Folder folder(arguments[1]);
  static Control control(arguments[3], folder.rules);
  folder.session = NewSession(folder, arguments[0]);
  if (folder.session == nullptr || fuse_session_mount(folder.session, arguments[2]) != 0) {
    unlink(control.Path().c_str());
    return 1;
  }
  std::thread([] { control.Serve(); }).detach();
  std::thread([point = arguments[2]] { EndOnSignal(folder.session, point, control); }).detach();
  const int result = Serve(folder.session);
  fuse_session_unmount(folder.session);
  unlink(control.Path().c_str());
  _exit(result);  // the threads that serve the socket never end
}

}  // namespace
}  // namespace hanging

int main(int count, char** arguments) {
  if (count != 4) {
    std::fprintf(stderr, "hang-folder SOURCE MOUNTPOINT SOCKET\n");
    return 2;
  }
  try {
    return hanging::Run(arguments);
  } catch (const std::exception& wrong) {
    std::fprintf(stderr, "hang-folder: %s\n", wrong.what());
    return 1;
  }
}
