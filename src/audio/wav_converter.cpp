#include "audio/wav_converter.h"

#include <samplerate.h>
#include <sndfile.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <system_error>
#include <vector>

#include "foundation/services/files.h"

namespace vardolin {
namespace {

struct OutForm {
  int rate = 44100;
  int channels = 2;
  int format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
};

bool FormOfMode(int mode, OutForm& form) {
  switch (mode) {
    case 1:
    case 3:
      form = {44100, 2, SF_FORMAT_WAV | SF_FORMAT_PCM_16};
      return true;
    case 2:
      form = {44100, 2, SF_FORMAT_WAV | SF_FORMAT_MS_ADPCM};
      return true;
    case 4:
      form = {22050, 1, SF_FORMAT_WAV | SF_FORMAT_PCM_16};
      return true;
  }
  return false;
}

struct SndCloser {
  void operator()(SNDFILE* f) const { sf_close(f); }
};
using SndFile = std::unique_ptr<SNDFILE, SndCloser>;
struct SrcCloser {
  void operator()(SRC_STATE* s) const { src_delete(s); }
};

// Bytes in memory seen as a file by libsndfile.
struct MemoryFile {
  std::string bytes;
  sf_count_t pos = 0;
};

sf_count_t MemLength(void* user) {
  return static_cast<sf_count_t>(static_cast<MemoryFile*>(user)->bytes.size());
}
sf_count_t MemSeek(sf_count_t offset, int whence, void* user) {
  auto* m = static_cast<MemoryFile*>(user);
  sf_count_t base = whence == SEEK_CUR ? m->pos : whence == SEEK_END ? MemLength(user) : 0;
  if (base + offset < 0) return -1;
  m->pos = base + offset;
  return m->pos;
}
sf_count_t MemRead(void* ptr, sf_count_t count, void* user) {
  auto* m = static_cast<MemoryFile*>(user);
  const sf_count_t size = MemLength(user);
  if (count <= 0 || m->pos >= size) return 0;
  count = std::min(count, size - m->pos);
  std::memcpy(ptr, m->bytes.data() + m->pos, static_cast<std::size_t>(count));
  m->pos += count;
  return count;
}
sf_count_t MemWrite(const void* ptr, sf_count_t count, void* user) {
  auto* m = static_cast<MemoryFile*>(user);
  if (count <= 0) return 0;
  const auto end = static_cast<std::size_t>(m->pos + count);
  if (end > m->bytes.size()) m->bytes.resize(end);
  std::memcpy(m->bytes.data() + m->pos, ptr, static_cast<std::size_t>(count));
  m->pos += count;
  return count;
}
sf_count_t MemTell(void* user) {
  return static_cast<MemoryFile*>(user)->pos;
}
SF_VIRTUAL_IO kMemoryIo = {MemLength, MemSeek, MemRead, MemWrite, MemTell};

std::string LibraryError(SNDFILE* file) {
  return sf_strerror(file);
}

// Maps a block of frames to the output's channels: a mono source is doubled, the first two
// channels of a wider one are kept, and a mono target takes the mean of all channels.
void MapChannels(const float* in, int in_channels, sf_count_t frames, float* out,
                 int out_channels) {
  for (sf_count_t f = 0; f < frames; ++f) {
    const float* s = in + f * in_channels;
    float* d = out + f * out_channels;
    if (out_channels == 1) {
      float sum = 0;
      for (int c = 0; c < in_channels; ++c) sum += s[c];
      d[0] = sum / static_cast<float>(in_channels);
    } else {
      d[0] = s[0];
      d[1] = in_channels > 1 ? s[1] : s[0];
    }
  }
}

bool Write(SNDFILE* out, const float* frames, sf_count_t count, std::string& message) {
  if (count == 0) return true;
  if (sf_writef_float(out, frames, count) == count) return true;
  message = "write failed: " + LibraryError(out);
  return false;
}

// Streams the whole input through channel mapping and rate change into the output.
bool Pump(SNDFILE* in, const SF_INFO& info, SNDFILE* out, const OutForm& form,
          std::string& message) {
  constexpr sf_count_t kFrames = 8192;
  std::vector<float> raw(static_cast<std::size_t>(kFrames * info.channels));
  std::vector<float> mapped(static_cast<std::size_t>(kFrames * form.channels));
  const double ratio = static_cast<double>(form.rate) / info.samplerate;
  std::unique_ptr<SRC_STATE, SrcCloser> src;
  std::vector<float> resampled;
  if (info.samplerate != form.rate) {
    int error = 0;
    src.reset(src_new(SRC_SINC_MEDIUM_QUALITY, form.channels, &error));
    if (!src) {
      message = src_strerror(error);
      return false;
    }
    resampled.resize(static_cast<std::size_t>((kFrames * ratio + 64) * form.channels));
  }
  sf_count_t total = 0;
  while (true) {
    const sf_count_t got = sf_readf_float(in, raw.data(), kFrames);
    if (got < 0) break;
    total += got;
    const bool last = got < kFrames;
    MapChannels(raw.data(), info.channels, got, mapped.data(), form.channels);
    if (!src) {
      if (!Write(out, mapped.data(), got, message)) return false;
    } else {
      SRC_DATA data{};
      data.data_in = mapped.data();
      data.input_frames = static_cast<long>(got);
      data.src_ratio = ratio;
      data.end_of_input = last ? 1 : 0;
      do {
        data.data_out = resampled.data();
        data.output_frames = static_cast<long>(resampled.size()) / form.channels;
        if (int error = src_process(src.get(), &data)) {
          message = src_strerror(error);
          return false;
        }
        if (!Write(out, resampled.data(), data.output_frames_gen, message)) return false;
        data.data_in += data.input_frames_used * form.channels;
        data.input_frames -= data.input_frames_used;
      } while (data.input_frames > 0 || (last && data.output_frames_gen > 0));
    }
    if (last) break;
  }
  if (total == 0) {
    message = "no sound in the source";
    return false;
  }
  return true;
}

bool CheckSource(SNDFILE* in, const SF_INFO& info, std::string& message) {
  if (!in) {
    message = "can't be read: " + LibraryError(nullptr);
    return false;
  }
  // Rates outside what sound is recorded at would only make the resampler run wild.
  if (info.channels < 1 || info.samplerate < 4000 || info.samplerate > 768000) {
    message = "no channels, or a sample rate out of range";
    return false;
  }
  return true;
}

// The conversion whatever the source and target are: `open_in` and `open_out` open them from
// the SF_INFO they are given; `out_fault` leads the message when the target can't be opened.
template <class OpenIn, class OpenOut>
bool Convert(int mode, OpenIn open_in, OpenOut open_out, const std::string& out_fault,
             std::string& message) {
  message.clear();
  OutForm form;
  if (!FormOfMode(mode, form)) {
    message = "unknown mode " + std::to_string(mode);
    return false;
  }
  SF_INFO info{};
  SndFile in(open_in(info));
  if (!CheckSource(in.get(), info, message)) return false;
  SF_INFO out_info{};
  out_info.samplerate = form.rate;
  out_info.channels = form.channels;
  out_info.format = form.format;
  SndFile out(open_out(out_info));
  if (!out) {
    message = out_fault + LibraryError(nullptr);
    return false;
  }
  sf_command(out.get(), SFC_SET_CLIPPING, nullptr, SF_TRUE);
  return Pump(in.get(), info, out.get(), form, message);
}

}  // namespace

bool WavConverter(const std::filesystem::path& source, const std::filesystem::path& target,
                  int mode, std::string& message) {
  // Only a target this call began to write is removed on a failure; any other is left alone.
  bool begun = false;
  const bool ok = Convert(
      mode, [&](SF_INFO& info) { return sf_open(ResolveCase(source).c_str(), SFM_READ, &info); },
      [&](SF_INFO& info) {
        SNDFILE* out = sf_open(target.c_str(), SFM_WRITE, &info);
        begun = out != nullptr;
        return out;
      },
      target.filename().string() + " can't be written: ", message);
  if (!ok && begun) DeleteFileForced(target);
  return ok;
}

bool WavConverter(std::string_view source, std::string& target, int mode, std::string& message) {
  target.clear();
  MemoryFile in_bytes{std::string(source), 0};
  MemoryFile out_bytes;
  const bool ok = Convert(
      mode, [&](SF_INFO& info) { return sf_open_virtual(&kMemoryIo, SFM_READ, &info, &in_bytes); },
      [&](SF_INFO& info) { return sf_open_virtual(&kMemoryIo, SFM_WRITE, &info, &out_bytes); }, "",
      message);
  if (ok) target = std::move(out_bytes.bytes);
  return ok;
}

}  // namespace vardolin
