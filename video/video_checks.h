// The entry checks of the video families, written once for every level.
//
// Motion compensation, block differences and block metrics check only
// their pointers (steps, modes and rounding controls are used as given);
// the SAD with half-sample modes then refuses a mode it has no kernel for.
// The MPEG-2 quantisers check their pointers, then the forward ones a zero
// quantiser scale.  A failed check returns before anything is written.
//
// Included inside a level's namespace; internal linkage.
#ifndef VEK_VIDEO_VIDEO_CHECKS_H
#define VEK_VIDEO_VIDEO_CHECKS_H

namespace {

// StatusNullPointer when any of the pointers is null.
template <class... Pointers>
inline VekStatus checkPointers(const Pointers*... pointers) {
    return ((pointers == nullptr) || ...) ? StatusNullPointer : StatusOk;
}

// The half-sample SAD has kernels for the modes 0, 4, 8 and 12 only.
inline VekStatus checkSadMode(int mcType) { return (mcType & ~12) == 0 ? StatusOk : StatusBadArgument; }

// The forward quantisers: the block and the count, then the scale.
inline VekStatus checkForwardQuant(const Vek16s* block, const Vek32s* count, int qp) {
    if (const VekStatus status = checkPointers(block, count)) return status;
    return qp == 0 ? StatusDivideByZero : StatusOk;
}

}  // namespace

#endif
