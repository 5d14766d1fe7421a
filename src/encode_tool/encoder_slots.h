#pragma once

#include <string>

namespace wavforge::encode_tool {

// One of count places for an encoder, shared by every job of this user: a lock on a file in a
// private folder, so an ended or killed holder frees its place at once. A child started with
// fork keeps the place until it ends, even after this object is gone in the parent.
class EncoderSlot {
 public:
  // Waits until one of count places is free and takes it. Without a usable slot folder the
  // encoder runs anyway: a missing lock must not stop a job.
  explicit EncoderSlot(int count);
  EncoderSlot(const EncoderSlot&) = delete;
  EncoderSlot& operator=(const EncoderSlot&) = delete;
  ~EncoderSlot();

  // Frees the place once the encoder has ended: checking and placing its output uses the disk,
  // not a core, and the next encoder need not wait for that.
  void Release();

 private:
  int fd_ = -1;
};

}  // namespace wavforge::encode_tool
