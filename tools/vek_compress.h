// `vek gzip` and `vek zlib`: files and pipes compressed by the library's
// deflate encoder into the gzip (RFC 1952) or zlib (RFC 1950) container.
#ifndef VEK_TOOLS_VEK_COMPRESS_H
#define VEK_TOOLS_VEK_COMPRESS_H

#include <string>
#include <vector>

int gzipCommand(const std::vector<std::string>& args);
int zlibCommand(const std::vector<std::string>& args);

#define VEK_COMPRESS_HELP "[-0|-1|-2] [-f] [FILE]  class fast/default/best; FILE to FILE.gz (kept), or stdin to stdout"

#endif
