// `vek motion`: block-matching motion estimation between two frames of a
// synthetic clip with the video primitives, and the PSNR of the
// motion-compensated prediction.
#ifndef VEK_TOOLS_VEK_MOTION_H
#define VEK_TOOLS_VEK_MOTION_H

#include <string>
#include <vector>

int motionCommand(const std::vector<std::string>& args);

#define VEK_MOTION_SUMMARY "[--range N]  motion search over two synthetic frames, PSNR of the prediction"

#endif
