#ifndef QVL_TOOLS_SAMPLE_NODE_CONTROLLER_FILLS_H_
#define QVL_TOOLS_SAMPLE_NODE_CONTROLLER_FILLS_H_

#include <cstddef>
#include <cstdint>

#include "tools/sample/data_writer.h"
#include "tools/sample/scenarios.h"

// The data of the node controllers' events. Multi-byte values are big-endian here.

namespace qvl::sample {

inline constexpr std::uint16_t kComponents[] = {0x0000, 0x0000, 0x0100, 0x0101, 0x0300,
                                                0x0400, 0x0401, 0x0500, 0x0501, 0x0600,
                                                0x0601, 0x0700, 0x0701};
inline constexpr std::uint8_t kUpperBoardId = 0x8A;
inline constexpr std::uint8_t kLowerBoardId = 0x8C;

inline void PutReporter(Scene& scene) {
  PutByte(scene, 0, scene.cast.isUpper ? kUpperBoardId : kLowerBoardId);
}

// One to two processors of the reporting board's tray.
inline std::uint32_t ProcessorMask(Scene& scene) {
  const std::uint32_t mask = 1U << scene.random.Below(4) | 1U << scene.random.Below(4);
  return scene.cast.isUpper ? mask : mask << 4U;
}

// selector: the byte behind the reporting board.
inline void FillNode(Scene& scene) {
  PutReporter(scene);
  PutByte(scene, 1, scene.kind.selector);
}

inline void FillNodeStatus(Scene& scene) {
  PutReporter(scene);
  PutByte(scene, 1, scene.random.Below(256));
}

inline void FillSideBand(Scene& scene) {
  PutReporter(scene);
  PutByte(scene, 1, scene.random.Below(2));
  PutByte(scene, 2, '0' + scene.random.Below(2));
  PutByte(scene, 3, scene.random.Below(16));
  PutByte(scene, 4, 0x80U | scene.random.Below(16));
  PutBe32(scene, 5, scene.random.Below(0x100) << 12U);
  PutBe32(scene, 9, scene.random.StatusWord() & 0xFFFFU);
}

inline void FillNodeAccess(Scene& scene) {
  PutReporter(scene);
  const std::uint32_t chip = scene.random.Below(2);
  PutByte(scene, 1, chip << 4U | scene.random.Below(8));
  PutByte(scene, 2, 0x80U | scene.random.Below(16));
  PutBe32(scene, 7, scene.random.Below(0x10000) << 3U);
  PutBe16(scene, 11, scene.random.AnyOf(kComponents));
}

inline void FillNodeConfiguration(Scene& scene) {
  PutReporter(scene);
  const std::uint32_t mask = ProcessorMask(scene);
  PutByte(scene, scene.random.Percent(50) ? 1 : 2, mask);
  PutBe16(scene, 3, 0x20E0U + scene.random.Below(16));
  PutBe16(scene, 5, 0x20E0U + scene.random.Below(16));
}

inline void FillNodeProcessor(Scene& scene) {
  PutReporter(scene);
  PutByte(scene, 1, scene.cast.isUpper ? scene.cast.processor - 1U : 4U - scene.cast.processor);
}

// selector: the link status.
inline void FillProcessorLink(Scene& scene) {
  FillNodeProcessor(scene);
  PutByte(scene, 2, scene.random.Below(4));
  PutByte(scene, 3, scene.kind.selector);
}

inline void FillChipLink(Scene& scene) {
  PutReporter(scene);
  PutByte(scene, 1, scene.random.Below(2));
  PutByte(scene, 2, scene.random.Below(6));
  PutByte(scene, 3, scene.kind.selector);
}

inline void FillNodeDisabled(Scene& scene) {
  PutReporter(scene);
  PutByte(scene, 1, ProcessorMask(scene));
  for (std::size_t i = 2; i < 6; ++i) PutByte(scene, i, scene.random.Below(64));
}

inline void FillIoBoardDisabled(Scene& scene) {
  PutReporter(scene);
  PutByte(scene, 1, scene.random.Below(3));
  for (std::size_t i = 2; i < 5; ++i) PutByte(scene, i, scene.random.Below(64));
}

// A length, board and chip, then (selector 1) the link, then register bytes, mostly zeros.
inline void FillChipError(Scene& scene) {
  const std::uint32_t first = 2U + scene.kind.selector;
  const std::uint32_t length = first + scene.random.Between(4, 6);
  PutByte(scene, 0, length);
  PutByte(scene, 1, (scene.cast.isUpper ? 0U : 2U) | scene.random.Below(2));
  if (scene.kind.selector == 1) PutByte(scene, 2, scene.random.Below(9));
  for (std::uint32_t i = first; i < length; ++i) {
    const bool isSet = i == first || scene.random.Percent(25);
    PutByte(scene, i, isSet ? 1U << scene.random.Below(8) : 0U);
  }
}

}  // namespace qvl::sample

#endif  // QVL_TOOLS_SAMPLE_NODE_CONTROLLER_FILLS_H_
