// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <span>
#include <thread>
#include <vector>
#include <zlib.h>

namespace turfdesk {

/// Compresses one source after the other into raw deflate streams, several blocks of a source at a time on threads of
/// its own. Each block starts from the 32 KiB before it and ends on a byte, so that the blocks together are one valid
/// stream. Reading happens on the calling thread alone. Takes the same memory however long the sources are.
class BlockDeflater {
public:
  /// Fills the buffer with the next bytes of the source; fewer only at its end.
  using Reader = std::function<std::size_t(std::span<std::uint8_t> buffer)>;

  /// Throws std::bad_alloc or std::system_error when memory or threads are short.
  BlockDeflater();
  BlockDeflater(const BlockDeflater &) = delete;
  BlockDeflater &operator=(const BlockDeflater &) = delete;
  ~BlockDeflater();

  /// Begins with a new source, dropping what is left of the one before.
  void Begin(Reader reader);
  /// Puts the next bytes of the stream into the buffer and gives their number, 0 at the stream's end. Passes on what
  /// the reader throws; after that only Begin may be called.
  std::size_t Take(std::span<std::uint8_t> buffer);
  /// The source's CRC-32, once Take has given 0.
  std::uint32_t Crc() const { return static_cast<std::uint32_t>(mCrc); }

private:
  struct Block;
  class Compressor;

  /// Tells all threads at once to end. A stop token tells one after the other, and with the threads of MinGW, which can
  /// miss one of several such calls, that sometimes never came to an end.
  class Stopper {
  public:
    explicit Stopper(BlockDeflater &deflater) : mDeflater(deflater) {}
    Stopper(const Stopper &) = delete;
    Stopper &operator=(const Stopper &) = delete;
    ~Stopper();

  private:
    BlockDeflater &mDeflater;
  };

  void ReadAhead();
  bool NextBlock();
  void Drop();
  void Work(Compressor &compressor);

  Reader mReader;
  bool mSourceEnded = true;
  uLong mCrc = 0;
  std::vector<std::uint8_t> mDictionary;
  std::size_t mMostInFlight = 0;
  std::size_t mOutputBound = 0;
  /// Blocks at work, in the order of the source; the one whose output is being taken; blocks for use again.
  std::deque<std::unique_ptr<Block>> mInFlight;
  std::unique_ptr<Block> mCurrent;
  std::size_t mTaken = 0;
  std::vector<std::unique_ptr<Block>> mSpare;

  std::mutex mMutex;
  std::condition_variable mBlockWaits;
  std::condition_variable mBlockDone;
  std::deque<Block *> mWaiting;
  unsigned mBusyWorkers = 0;
  bool mStopping = false;

  std::vector<std::unique_ptr<Compressor>> mCompressors;
  /// Last, so that the threads end before what they use, and are told so before they are waited for.
  std::vector<std::jthread> mWorkers;
  Stopper mStopper{*this};
};

} // namespace turfdesk
