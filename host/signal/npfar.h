/// Prime-factor lengths and the transform of the spectrum tools.
#ifndef NPFAR_H
#define NPFAR_H

/// The smallest valid length of pfarc that is not below nmin, at least 2: twice a product of at most one
/// of each of {2, 4, 8, 16}, {3, 9}, 5, 7, 11 and 13. Above the largest of them, 1441440, the next even
/// number, which the transform takes as well.
int npfar(int nmin);

/// Transforms n real floats into n/2 + 1 interleaved complex ones, unscaled:
/// sum over j of real[j] exp(isign 2 pi i j k / n). The arrays may have any alignment and may be the same.
///
/// @param isign  -1 or 1, the sign in the exponent
/// @param n      at least 1, commonly from npfar
///
/// May be called from several threads; a length seen for the first time is planned.
void pfarc(int isign, int n, const float* real, float* complexInterleaved);

#endif
