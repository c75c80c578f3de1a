#pragma once

#include <functional>
#include <string>

#include "Locks.h"
#include "Nodes.h"
#include "Rules.h"

namespace hanging {

/// What the operations of the file system work on; the session's user data.
struct Folder {
  explicit Folder(const std::string& source) : nodes(source) {}

  Nodes nodes;
  Locks locks;
  Rules rules;
  fuse_session* session = nullptr;
};

Folder& Of(fuse_req_t request);

/// True where the operation met a rule and has been answered with an error.
bool Held(fuse_req_t request, Kind kind, fuse_ino_t number);
bool Held(fuse_req_t request, Kind kind, fuse_ino_t folder, const char* name);
bool Held(fuse_req_t request, Kind kind, const std::function<Rules::Paths()>& paths);

/// Answers with success, or with the errno of the call that gave this result.
void AnswerCall(fuse_req_t request, int result);

/// The operations by what they work on; each fills in its own.
void NameOperations(fuse_lowlevel_ops& operations);
void FileOperations(fuse_lowlevel_ops& operations);
void FolderOperations(fuse_lowlevel_ops& operations);
void LockOperations(fuse_lowlevel_ops& operations);

}  // namespace hanging
