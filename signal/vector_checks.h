// The entry check of the vector families, one function for every level:
// any vector pointer null gives StatusNullPointer, then a length below 1
// StatusSize.  A member with further parameters checks them after this.
//
// Included inside a level's namespace; internal linkage.
#ifndef VEK_SIGNAL_VECTOR_CHECKS_H
#define VEK_SIGNAL_VECTOR_CHECKS_H

namespace {

template <class... Vectors>
inline VekStatus checkVectors(int len, const Vectors*... vectors) {
    if (((vectors == nullptr) || ...)) return StatusNullPointer;
    if (len < 1) return StatusSize;
    return StatusOk;
}

// The checks, then kernel() if they pass.
template <class Kernel, class... Vectors>
inline VekStatus checkThenRun(Kernel kernel, int len, const Vectors*... vectors) {
    const VekStatus status = checkVectors(len, vectors...);
    if (status == StatusOk) kernel();
    return status;
}

}  // namespace

#endif
