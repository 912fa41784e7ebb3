"""Hours of sleep after each of two drugs, by the library for C and nothing but Python's own modules."""

import ctypes
import json

library = ctypes.CDLL("libtbvnonpara.so.0")
library.tbv_result_json.restype = ctypes.c_char_p
library.tbv_result_json.argtypes = [ctypes.c_void_p]
library.tbv_result_free.argtypes = [ctypes.c_void_p]


def mann_whitney(first, second):
    """All figures of the test as a dictionary."""
    x = (ctypes.c_double * len(first))(*first)
    y = (ctypes.c_double * len(second))(*second)
    result = ctypes.c_void_p()
    error = ctypes.create_string_buffer(256)
    if library.tbv_mann_whitney(x, ctypes.c_size_t(len(x)), y, ctypes.c_size_t(len(y)), None,
                                ctypes.byref(result), error):
        raise ValueError(error.value.decode())
    try:
        return json.loads(library.tbv_result_json(result))
    finally:
        library.tbv_result_free(result)


figures = mann_whitney([0.7, -1.6, -0.2, -1.2, -0.1, 3.4, 3.7, 0.8, 0.0, 2.0],
                       [1.9, 0.8, 1.1, 0.1, -0.1, 4.4, 5.5, 1.6, 4.6, 3.4])
print("exact P =", round(figures["p"]["exact"]["two"]["value"], 4))
try:
    mann_whitney([1, float("nan")], [2])
except ValueError as refusal:
    print(refusal)
