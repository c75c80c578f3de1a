// What works on names: looking up, making, renaming, taking away; and what is known of a file without opening
// it.
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>

#include "Folder.h"

namespace hanging {
namespace {

int PlaceOf(fuse_req_t request, fuse_ino_t number) {
  return Of(request).nodes.At(number).place;
}

void AnswerEntry(fuse_req_t request, fuse_ino_t folder, const char* name) {
  Nodes& nodes = Of(request).nodes;
  fuse_entry_param entry{};
  const int error = nodes.Find(folder, name, entry);
  if (error != 0)
    fuse_reply_err(request, error);
  else if (fuse_reply_entry(request, &entry) == -ENOENT)
    nodes.Forget(entry.ino, 1);
}

/// What was made belongs to whoever asked for it, who need not be who mounted.
void AnswerMade(fuse_req_t request, int result, fuse_ino_t folder, const char* name) {
  if (result == -1) return AnswerCall(request, result);
  const fuse_ctx* asking = fuse_req_ctx(request);
  if (geteuid() == 0 && asking->uid != 0)
    fchownat(PlaceOf(request, folder), name, asking->uid, asking->gid, AT_SYMLINK_NOFOLLOW);
  AnswerEntry(request, folder, name);
}

void Lookup(fuse_req_t request, fuse_ino_t folder, const char* name) {
  if (!Held(request, Kind::kStat, folder, name)) AnswerEntry(request, folder, name);
}

void Forget(fuse_req_t request, fuse_ino_t number, std::uint64_t times) {
  Of(request).nodes.Forget(number, times);
  fuse_reply_none(request);
}

void ForgetMany(fuse_req_t request, std::size_t count, fuse_forget_data* forgotten) {
  for (std::size_t at = 0; at < count; ++at)
    Of(request).nodes.Forget(forgotten[at].ino, forgotten[at].nlookup);
  fuse_reply_none(request);
}

void AnswerStatus(fuse_req_t request, fuse_ino_t number) {
  struct stat status {};
  if (fstat(PlaceOf(request, number), &status) != 0) return AnswerCall(request, -1);
  fuse_reply_attr(request, &status, 0);
}

void GetStatus(fuse_req_t request, fuse_ino_t number, fuse_file_info*) {
  if (!Held(request, Kind::kStat, number)) AnswerStatus(request, number);
}

timespec TimeOf(int which, int now, int given, const timespec& time) {
  if ((which & now) != 0) return {0, UTIME_NOW};
  return (which & given) != 0 ? time : timespec{0, UTIME_OMIT};
}

int Change(const Node& node, const struct stat& wanted, int which, const fuse_file_info* file) {
  const std::string link = Nodes::Link(node);
  if ((which & FUSE_SET_ATTR_MODE) != 0 && chmod(link.c_str(), wanted.st_mode) != 0) return -1;
  if ((which & (FUSE_SET_ATTR_UID | FUSE_SET_ATTR_GID)) != 0) {
    const uid_t user = (which & FUSE_SET_ATTR_UID) != 0 ? wanted.st_uid : static_cast<uid_t>(-1);
    const gid_t group = (which & FUSE_SET_ATTR_GID) != 0 ? wanted.st_gid : static_cast<gid_t>(-1);
    if (fchownat(node.place, "", user, group, AT_EMPTY_PATH | AT_SYMLINK_NOFOLLOW) != 0) return -1;
  }
  if ((which & FUSE_SET_ATTR_SIZE) != 0) {
    const int cut = file != nullptr ? ftruncate(static_cast<int>(file->fh), wanted.st_size)
                                    : truncate(link.c_str(), wanted.st_size);
    if (cut != 0) return -1;
  }
  if ((which & (FUSE_SET_ATTR_ATIME | FUSE_SET_ATTR_MTIME)) == 0) return 0;
  const std::array<timespec, 2> times = {
      TimeOf(which, FUSE_SET_ATTR_ATIME_NOW, FUSE_SET_ATTR_ATIME, wanted.st_atim),
      TimeOf(which, FUSE_SET_ATTR_MTIME_NOW, FUSE_SET_ATTR_MTIME, wanted.st_mtim)};
  return utimensat(node.place, "", times.data(), AT_EMPTY_PATH);
}

void SetStatus(fuse_req_t request, fuse_ino_t number, struct stat* wanted, int which, fuse_file_info* file) {
  const Kind kind = (which & FUSE_SET_ATTR_SIZE) != 0 ? Kind::kWrite : Kind::kStat;
  if (Held(request, kind, number)) return;
  if (Change(Of(request).nodes.At(number), *wanted, which, file) != 0) return AnswerCall(request, -1);
  AnswerStatus(request, number);
}

void ReadLink(fuse_req_t request, fuse_ino_t number) {
  if (Held(request, Kind::kRead, number)) return;
  std::array<char, PATH_MAX + 1> target{};
  if (readlinkat(PlaceOf(request, number), "", target.data(), PATH_MAX) < 0) return AnswerCall(request, -1);
  fuse_reply_readlink(request, target.data());
}

void MakeNode(fuse_req_t request, fuse_ino_t folder, const char* name, mode_t mode, dev_t device) {
  if (Held(request, Kind::kOpen, folder, name)) return;
  AnswerMade(request, mknodat(PlaceOf(request, folder), name, mode, device), folder, name);
}

void MakeFolder(fuse_req_t request, fuse_ino_t folder, const char* name, mode_t mode) {
  if (Held(request, Kind::kDirectory, folder, name)) return;
  AnswerMade(request, mkdirat(PlaceOf(request, folder), name, mode), folder, name);
}

void MakeSymlink(fuse_req_t request, const char* target, fuse_ino_t folder, const char* name) {
  if (Held(request, Kind::kDirectory, folder, name)) return;
  AnswerMade(request, symlinkat(target, PlaceOf(request, folder), name), folder, name);
}

void Unlink(fuse_req_t request, fuse_ino_t folder, const char* name) {
  if (Held(request, Kind::kDirectory, folder, name)) return;
  AnswerCall(request, unlinkat(PlaceOf(request, folder), name, 0));
}

void RemoveFolder(fuse_req_t request, fuse_ino_t folder, const char* name) {
  if (Held(request, Kind::kDirectory, folder, name)) return;
  AnswerCall(request, unlinkat(PlaceOf(request, folder), name, AT_REMOVEDIR));
}

void Rename(fuse_req_t request, fuse_ino_t from, const char* name, fuse_ino_t to, const char* newName,
            unsigned int flags) {
  Nodes& nodes = Of(request).nodes;
  const auto both = [&] { return Rules::Paths{nodes.PathOf(from, name), nodes.PathOf(to, newName)}; };
  if (Held(request, Kind::kRename, both)) return;
  AnswerCall(request, renameat2(nodes.At(from).place, name, nodes.At(to).place, newName, flags));
}

void MakeLink(fuse_req_t request, fuse_ino_t number, fuse_ino_t folder, const char* name) {
  Nodes& nodes = Of(request).nodes;
  const auto both = [&] { return Rules::Paths{nodes.PathOf(number), nodes.PathOf(folder, name)}; };
  if (Held(request, Kind::kRename, both)) return;
  const std::string link = Nodes::Link(nodes.At(number));
  if (linkat(AT_FDCWD, link.c_str(), nodes.At(folder).place, name, AT_SYMLINK_FOLLOW) != 0)
    return AnswerCall(request, -1);
  AnswerEntry(request, folder, name);
}

void Room(fuse_req_t request, fuse_ino_t number) {
  if (Held(request, Kind::kStat, number)) return;
  struct statvfs room {};
  if (fstatvfs(PlaceOf(request, number), &room) != 0) return AnswerCall(request, -1);
  fuse_reply_statfs(request, &room);
}

}  // namespace

void NameOperations(fuse_lowlevel_ops& operations) {
  operations.lookup = Lookup;
  operations.forget = Forget;
  operations.forget_multi = ForgetMany;
  operations.getattr = GetStatus;
  operations.setattr = SetStatus;
  operations.readlink = ReadLink;
  operations.mknod = MakeNode;
  operations.mkdir = MakeFolder;
  operations.symlink = MakeSymlink;
  operations.unlink = Unlink;
  operations.rmdir = RemoveFolder;
  operations.rename = Rename;
  operations.link = MakeLink;
  operations.statfs = Room;
}

}  // namespace hanging
