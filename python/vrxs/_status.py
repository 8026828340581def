"""Status values of the library: names and meanings.

The library itself holds no text; every message a Python user sees is here.
Zero is success, a negative value an error (nothing was written), a positive
value a warning (the whole vector was processed).
"""

# value: (name, meaning)
STATUS = {
    9: ("vrxWarnNanArg", "a NaN or an infinity was among the values"),
    8: ("vrxWarnLnNegArg", "the logarithm met at least one negative element"),
    7: ("vrxWarnLnZeroArg", "the logarithm met at least one zero element"),
    6: ("vrxWarnDivByZero", "at least one element had a zero divisor"),
    5: ("vrxWarnEvenMedianMask", "the median mask length was even and ran one shorter"),
    4: ("vrxWarnInvZero", "a zero element was inverted while the level was zero"),
    3: ("vrxWarnSqrtNegArg", "the square root met at least one negative element"),
    0: ("vrxOk", "success"),
    -5: ("vrxErrBadArg", "a selector or parameter has a value the function does not take"),
    -6: ("vrxErrBadLength", "a length is zero, negative or below the function's minimum"),
    -7: ("vrxErrRange", "a selector lies outside its range"),
    -8: ("vrxErrNullPtr", "a required pointer is null"),
    -9: ("vrxErrNoMemory", "an internal table would not fit"),
    -10: ("vrxErrDivByZero", "a scalar divisor or normalising factor is zero"),
    -12: ("vrxErrDataType", "the data-type selector is not one this query knows"),
    -15: ("vrxErrFftOrder", "the FFT order is out of range"),
    -16: ("vrxErrFftFlag", "the FFT normalisation flag is not one of the four values"),
    -17: ("vrxErrBadSpec", "the plan or state does not carry the identity word of its kind"),
    -18: ("vrxErrThreshOrder", "the lower threshold level exceeds the upper one"),
    -19: ("vrxErrThreshNeg", "a negative level where only magnitudes are compared"),
    -25: ("vrxErrIirOrder", "the IIR order or number of sections is below one"),
    -26: ("vrxErrFirLen", "the FIR tap count is below one"),
    -27: ("vrxErrRelFreq", "the relative frequency lies outside [0, 1)"),
    -28: ("vrxErrFirMrPhase", "a multi-rate phase is negative or not below its factor"),
    -29: ("vrxErrFirMrFactor", "a multi-rate factor is out of range"),
    -30: ("vrxErrSamplePhase", "the sampling phase is negative or not below the factor"),
    -31: ("vrxErrSampleFactor", "the sampling factor is below one"),
    -32: ("vrxErrShift", "the shift count is negative"),
    -33: ("vrxErrMaskSize", "the window or mask size is below one"),
    -35: ("vrxErrWtOffset", "the wavelet offset is below -1"),
    -38: ("vrxErrJaehneMagn", "the magnitude is negative"),
    -39: ("vrxErrKaiserAlpha", "the Kaiser alpha times (N-1)/2 exceeds 38"),
    -40: ("vrxErrTrnglAsym", "the triangle asymmetry is out of range"),
    -41: ("vrxErrTrnglPhase", "the triangle phase is out of range"),
    -42: ("vrxErrTrnglFreq", "the triangle frequency is out of range"),
    -43: ("vrxErrTrnglMagn", "the triangle magnitude is out of range"),
    -44: ("vrxErrTonePhase", "the tone phase is out of range"),
    -45: ("vrxErrToneFreq", "the tone frequency is out of range"),
    -46: ("vrxErrToneMagn", "the tone magnitude is out of range"),
    -47: ("vrxErrChannels", "the channel count is below one"),
    -53: ("vrxErrChannelCount", "the channel count is below one"),
    -182: ("vrxErrIirGenSingular", "the matrix inversion of the IIR design failed"),
    -194: ("vrxErrSparseTaps", "the sparse tap set is not acceptable"),
    -195: ("vrxErrIirGenPivot", "the matrix inversion of the IIR design failed"),
    -206: ("vrxErrIirGenOrder", "the design order lies outside 1 to 12"),
    -208: ("vrxErrIirGenFreq", "the cut-off frequency is out of range"),
    -209: ("vrxErrIirGenPassband", "the pass-band ripple of the Chebyshev design is out of range"),
    -213: ("vrxErrRounding", "the rounding mode is not one this function supports"),
    -228: ("vrxErrAlgType", "the algorithm or normalisation selector is out of range"),
    -234: ("vrxErrIirIirLength", "the vector is shorter than three times the filter order"),
}

NAMES = {v: k for k, (v, _) in STATUS.items()}


def status_name(value):
    """The name of a status value ("vrxStatus<value>" for an unknown one)."""
    entry = STATUS.get(value)
    return entry[0] if entry else "vrxStatus%d" % value


def status_meaning(value):
    entry = STATUS.get(value)
    return entry[1] if entry else "a status this package does not know"


class _StatusText:
    """The status value, its name and meaning, and the export that gave it."""

    def _describe(self, status, function):
        self.status = status
        self.name = status_name(status)
        self.meaning = status_meaning(status)
        self.function = function
        where = function + ": " if function else ""
        return "%s%s (%d): %s" % (where, self.name, status, self.meaning)


class VrxsError(_StatusText, Exception):
    """A negative status: the call failed and wrote nothing.

    Attributes: status (the value), name, meaning, function (the export)."""

    def __init__(self, status, function=""):
        super().__init__(self._describe(status, function))


class VrxsWarning(_StatusText, UserWarning):
    """A positive status: the call ran over the whole vector, with a remark."""

    def __init__(self, status, function=""):
        super().__init__(self._describe(status, function))
