// What works on an open file. Its handle is the descriptor of the file in the source.
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

#include "Folder.h"

namespace hanging {
namespace {

int FileOf(const fuse_file_info* file) {
  return static_cast<int>(file->fh);
}

int FlagsOf(const fuse_file_info* file) {
  return (file->flags & ~(O_NOFOLLOW | O_DIRECT)) | O_CLOEXEC;
}

void Keep(fuse_file_info* file, int opened) {
  file->fh = static_cast<std::uint64_t>(opened);
  // Each read and each write of the program comes here, not only the first one of a page.
  file->direct_io = 1;
}

void Open(fuse_req_t request, fuse_ino_t number, fuse_file_info* file) {
  if (Held(request, Kind::kOpen, number)) return;
  const int opened = open(Nodes::Link(Of(request).nodes.At(number)).c_str(), FlagsOf(file));
  if (opened < 0) return AnswerCall(request, -1);
  Keep(file, opened);
  if (fuse_reply_open(request, file) == -ENOENT) close(opened);
}

void Create(fuse_req_t request, fuse_ino_t folder, const char* name, mode_t mode, fuse_file_info* file) {
  if (Held(request, Kind::kOpen, folder, name)) return;
  Nodes& nodes = Of(request).nodes;
  const int opened = openat(nodes.At(folder).place, name, FlagsOf(file) | O_CREAT | O_NOFOLLOW, mode);
  if (opened < 0) return AnswerCall(request, -1);
  const fuse_ctx* asking = fuse_req_ctx(request);
  if (geteuid() == 0 && asking->uid != 0) fchown(opened, asking->uid, asking->gid);
  fuse_entry_param entry{};
  const int error = nodes.Find(folder, name, entry);
  Keep(file, opened);
  if (error != 0) fuse_reply_err(request, error);
  const bool taken = error == 0 && fuse_reply_create(request, &entry, file) != -ENOENT;
  if (error == 0 && !taken) nodes.Forget(entry.ino, 1);
  if (!taken) close(opened);
}

void Read(fuse_req_t request, fuse_ino_t number, std::size_t size, off_t offset, fuse_file_info* file) {
  if (Held(request, Kind::kRead, number)) return;
  std::vector<char> bytes(size);
  const ssize_t got = pread(FileOf(file), bytes.data(), size, offset);
  if (got < 0) return AnswerCall(request, -1);
  fuse_reply_buf(request, bytes.data(), static_cast<std::size_t>(got));
}

void Write(fuse_req_t request, fuse_ino_t number, const char* bytes, std::size_t size, off_t offset,
           fuse_file_info* file) {
  if (Held(request, Kind::kWrite, number)) return;
  const ssize_t written = pwrite(FileOf(file), bytes, size, offset);
  if (written < 0) return AnswerCall(request, -1);
  fuse_reply_write(request, static_cast<std::size_t>(written));
}

void CopyRange(fuse_req_t request, fuse_ino_t, off_t offset, fuse_file_info* from, fuse_ino_t number,
               off_t into, fuse_file_info* to, std::size_t size, int flags) {
  if (Held(request, Kind::kWrite, number)) return;
  const ssize_t copied =
      copy_file_range(FileOf(from), &offset, FileOf(to), &into, size, static_cast<unsigned>(flags));
  if (copied < 0) return AnswerCall(request, -1);
  fuse_reply_write(request, static_cast<std::size_t>(copied));
}

void Allocate(fuse_req_t request, fuse_ino_t number, int mode, off_t offset, off_t length,
              fuse_file_info* file) {
  if (Held(request, Kind::kWrite, number)) return;
  AnswerCall(request, fallocate(FileOf(file), mode, offset, length));
}

void Seek(fuse_req_t request, fuse_ino_t, off_t offset, int whence, fuse_file_info* file) {
  const off_t found = lseek(FileOf(file), offset, whence);
  if (found < 0) return AnswerCall(request, -1);
  fuse_reply_lseek(request, found);
}

void Sync(fuse_req_t request, fuse_ino_t number, int dataOnly, fuse_file_info* file) {
  if (Held(request, Kind::kSync, number)) return;
  AnswerCall(request, dataOnly != 0 ? fdatasync(FileOf(file)) : fsync(FileOf(file)));
}

// No rule stops a close: the kernel lets nobody die in it.
void Flush(fuse_req_t request, fuse_ino_t number, fuse_file_info* file) {
  Of(request).locks.Drop(Of(request).nodes.At(number), file->lock_owner);
  fuse_reply_err(request, 0);
}

void Release(fuse_req_t request, fuse_ino_t, fuse_file_info* file) {
  Of(request).locks.Released(file->fh);
  close(FileOf(file));
  fuse_reply_err(request, 0);
}

}  // namespace

void FileOperations(fuse_lowlevel_ops& operations) {
  operations.open = Open;
  operations.create = Create;
  operations.read = Read;
  operations.write = Write;
  operations.copy_file_range = CopyRange;
  operations.fallocate = Allocate;
  operations.lseek = Seek;
  operations.fsync = Sync;
  operations.flush = Flush;
  operations.release = Release;
}

}  // namespace hanging
