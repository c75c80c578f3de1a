#include "camera/DSPreview/DSPreview.h"

namespace vintoral {

void DSPreview::ConfigCamera(Forms& /*forms*/) {
  if (!started_ || camera_->Options().Empty()) return;
}

}  // namespace vintoral
