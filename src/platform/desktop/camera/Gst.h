// What GStreamer counts references of, held by one owner.
#pragma once

#include <gst/gst.h>

#include <memory>

namespace vintoral {

struct GstUnref {
  void operator()(gpointer object) const { gst_object_unref(object); }
  void operator()(GstSample* sample) const { gst_sample_unref(sample); }
  void operator()(GstCaps* caps) const { gst_caps_unref(caps); }
  void operator()(GstStructure* structure) const { gst_structure_free(structure); }
};

template <class T>
using GstOwned = std::unique_ptr<T, GstUnref>;

}  // namespace vintoral
