#!/usr/bin/python3
"""Uses the C-style layer from Python, by ctypes, through the host's own module.

Prints what a definition loses when it is read, and its ESRI WKT. Transforms points from it to
another definition. The points are two columns of standard input. examples/layer_module has
the source of the module.
"""
import argparse
import ctypes
import os
import sys

WKT_SIZE = 1 << 16


class Loss(ctypes.Structure):
    """The structure in zu_pj4_layer.h."""

    _fields_ = [("piece", ctypes.c_char_p), ("reason", ctypes.c_int), ("kept", ctypes.c_char_p),
                ("moves_points", ctypes.c_int), ("sentence", ctypes.c_wchar_p)]


Found = ctypes.CFUNCTYPE(None, ctypes.c_void_p, ctypes.POINTER(Loss))
Numbers = ctypes.POINTER(ctypes.c_double)


class Layer:
    def __init__(self, path):
        self.module = ctypes.CDLL(path)
        self.module.layer_transform.argtypes = [
            ctypes.c_char_p, ctypes.c_char_p, ctypes.c_size_t, Numbers, Numbers]
        self.module.layer_export_esri.argtypes = [
            ctypes.c_wchar_p, ctypes.c_char_p, ctypes.c_size_t]
        self.module.layer_find_losses.argtypes = [ctypes.c_char_p, Found, ctypes.c_void_p]

    def losses(self, definition):
        sentences = []
        # The texts are valid only during the callback, so these are copies.
        found = Found(lambda _context, loss: sentences.append(loss.contents.sentence))
        self.module.layer_find_losses(os.fsencode(definition), found, None)
        return sentences

    def esri(self, definition):
        text = ctypes.create_string_buffer(WKT_SIZE)
        done = self.module.layer_export_esri(definition, text, WKT_SIZE)
        return text.value.decode("ascii") if done else None

    def transform(self, source, target, points):
        """The transformed points. A point that cannot be transformed is not finite."""
        column = ctypes.c_double * len(points)
        x, y = (column(*values) for values in zip(*points)) if points else (column(), column())
        self.module.layer_transform(os.fsencode(source), os.fsencode(target), len(points), x, y)
        return list(zip(x, y))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--module", default=os.path.join(os.path.dirname(
        os.path.abspath(__file__)), "layer_module.so"))
    parser.add_argument("source")
    parser.add_argument("target")
    options = parser.parse_args()
    layer = Layer(options.module)
    for sentence in layer.losses(options.source):
        print("lost:", sentence)
    print("esri:", layer.esri(options.source))
    points = [tuple(map(float, line.split()[:2])) for line in sys.stdin]
    for x, y in layer.transform(options.source, options.target, points):
        print(f"{x:.9f} {y:.9f}")


if __name__ == "__main__":
    main()
