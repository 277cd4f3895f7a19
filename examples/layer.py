#!/usr/bin/python3
"""The C-style layer from Python, by ctypes, through a module of the host's own.

Prints what a definition loses on being read and its ESRI WKT, and transforms points
from it to another definition: those of standard input, two columns each.
The module is built from examples/layer_module.
"""
import argparse
import ctypes
import os
import sys

WKT_SIZE = 1 << 16


class Loss(ctypes.Structure):
    """As zu_pj4_layer.h has it."""

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
        # The texts are valid during the callback: these are copies.
        found = Found(lambda _context, loss: sentences.append(loss.contents.sentence))
        self.module.layer_find_losses(os.fsencode(definition), found, None)
        return sentences

    def esri(self, definition):
        text = ctypes.create_string_buffer(WKT_SIZE)
        done = self.module.layer_export_esri(definition, text, WKT_SIZE)
        return text.value.decode("ascii") if done else None

    def transform(self, source, target, points):
        """The points in the target; one that cannot be transformed is not finite."""
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
