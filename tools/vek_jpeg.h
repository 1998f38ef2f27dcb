// `vek jpeg encode` and `vek jpeg decode`: PPM and PGM files to JFIF files
// and back through the codec built on the library's JPEG primitives
// (examples/jpeg_codec).
#ifndef VEK_TOOLS_VEK_JPEG_H
#define VEK_TOOLS_VEK_JPEG_H

#include <string>
#include <vector>

int jpegCommand(const std::vector<std::string>& args);

#define VEK_JPEG_SUMMARY "encode|decode ...  PPM/PGM to JPEG and back (vek jpeg with no arguments for usage)"

#endif
