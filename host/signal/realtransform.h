/// Fourier transforms of real traces, planned once for each length.
#ifndef REALTRANSFORM_H
#define REALTRANSFORM_H

#include <memory>

/// Transforms of one length between n real floats and n/2 + 1 interleaved complex ones, exp(-iwt)
/// forward, neither direction scaled. Made once for each length and kept for the life of the program.
/// The transforms may run in several threads at once, each with arrays of its own.
///
/// Plans are estimated, not measured, so that the same input gives the same bits in every run.
class RealTransform
{
public:
    /// The transform of n >= 1 samples; safe from several threads.
    static const RealTransform& ofLength(int n);
    ~RealTransform();

    int length() const { return _n; }
    int complexCount() const { return _n / 2 + 1; }
    /// Both arrays must be those of a TransformWork; `real` is kept.
    void forward(const float* real, float* complexOut) const;
    /// Spoils complexIn. back(forward(x)) is n times x.
    void back(float* complexIn, float* real) const;

private:
    explicit RealTransform(int n);
    struct Plans;

    int _n;
    std::unique_ptr<Plans> _plans;
};

/// Work arrays of the calling thread, aligned as the transforms want them: n + 2 floats each, kept and
/// only growing. The contents are whatever the last user left.
struct TransformWork {
    float* real;
    float* spectrum;
    static TransformWork ofThread(int n);
};

/// A length from n up that transforms fast: the least product of 16 and powers of 2, 3 and 5. (The
/// prime-factor lengths of npfar, with their 7 x 11 x 13, take more than twice as long.)
int quickTransformLength(int n);

#endif
