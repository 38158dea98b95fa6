#!/usr/bin/env python3
"""A host in Python: opens a vector file, writes the map as a picture, shows the layer editor, and writes the picture
anew at each Apply. It knows the functions' names only.

Usage: host.py LIBRARY FILE PICTURE.png [--seconds N]

LIBRARY is libvxk_lr2d_edit_form.so of an install. With --seconds the editor closes by itself after that time.
"""
import argparse
import ctypes
import struct
import time
import zlib

WIDTH, HEIGHT = 900, 450


class Library:
    """The functions that a host uses, with their types."""

    def __init__(self, path):
        library = ctypes.CDLL(path)
        handle, text = ctypes.c_void_p, ctypes.c_wchar_p
        self.extent_type = ctypes.c_double * 4
        self.callback_type = ctypes.CFUNCTYPE(None, ctypes.c_void_p)

        def function(name, result, *arguments):
            found = getattr(library, name)
            found.restype, found.argtypes = result, arguments
            setattr(self, name, found)

        function('vx_shp_lr2d_open', handle, text, handle)
        function('vx_lr2d_clone', handle, handle)
        function('vx_lr2d_destroy', None, handle)
        function('vx_host_get_extent', ctypes.c_bool, handle, self.extent_type)
        function('vx_host_draw', ctypes.c_bool, handle, self.extent_type, ctypes.c_int, ctypes.c_int,
                 ctypes.c_char_p, ctypes.c_int)
        function('vx_host_process_events', None)
        function('vx_host_run', None)
        function('vx_lr2d_edt_form_create', handle)
        function('vx_lr2d_edt_form_create_all', None, handle)
        function('vx_lr2d_edt_form_set_callback', None, handle, handle, self.callback_type)
        function('vx_lr2d_edt_form_set_lr2d', None, handle, handle)
        function('vx_lr2d_edt_form_get_lr2d_ptr', handle, handle)
        function('vx_lr2d_edt_form_update', None, handle)
        function('vx_lr2d_edt_form_show_pos', None, handle, ctypes.c_int, ctypes.c_int)
        function('vx_lr2d_edt_form_destroy', None, handle)


def write_png(path, pixels):
    """Blue, green, red, alpha, all opaque: as a PNG of red, green, blue."""
    rows = bytearray()
    for y in range(HEIGHT):
        row = pixels[y * WIDTH * 4:(y + 1) * WIDTH * 4]
        rows.append(0)
        line = bytearray(WIDTH * 3)
        line[0::3], line[1::3], line[2::3] = row[2::4], row[1::4], row[0::4]
        rows += line

    def chunk(kind, data):
        return struct.pack('>I', len(data)) + kind + data + struct.pack('>I', zlib.crc32(kind + data))

    with open(path, 'wb') as file:
        file.write(b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', struct.pack('>IIBBBBB', WIDTH, HEIGHT, 8, 2, 0, 0, 0)) +
                   chunk(b'IDAT', zlib.compress(bytes(rows))) + chunk(b'IEND', b''))


class Host:
    def __init__(self, vx, file, picture):
        self.vx, self.picture = vx, picture
        self.layer = vx.vx_shp_lr2d_open(file, None)
        if not self.layer:
            raise SystemExit(f'{file} cannot be opened')
        self.editor = vx.vx_lr2d_edt_form_create()
        vx.vx_lr2d_edt_form_create_all(self.editor)
        self.callback = vx.callback_type(self.on_apply)  # kept as long as the editor may call it
        vx.vx_lr2d_edt_form_set_callback(self.editor, None, self.callback)
        vx.vx_lr2d_edt_form_set_lr2d(self.editor, self.layer)
        vx.vx_lr2d_edt_form_update(self.editor)

    def draw(self):
        extent = self.vx.extent_type()
        pixels = ctypes.create_string_buffer(b'\xff' * (WIDTH * HEIGHT * 4), WIDTH * HEIGHT * 4)
        if self.vx.vx_host_get_extent(self.layer, extent):
            self.vx.vx_host_draw(self.layer, extent, WIDTH, HEIGHT, pixels, WIDTH * 4)
        write_png(self.picture, pixels.raw)
        empty = pixels.raw.count(b'\xff\xff\xff\xff')
        print(f'{self.picture}: {100 - 100 * empty // (WIDTH * HEIGHT)} % drawn')

    def on_apply(self, _):
        self.vx.vx_lr2d_destroy(self.layer)
        self.layer = self.vx.vx_lr2d_clone(self.vx.vx_lr2d_edt_form_get_lr2d_ptr(self.editor))
        self.draw()

    def run(self, seconds):
        self.draw()
        self.vx.vx_lr2d_edt_form_show_pos(self.editor, 100, 100)
        if seconds is None:
            self.vx.vx_host_run()
            return
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            self.vx.vx_host_process_events()
            time.sleep(0.01)

    def close(self):
        self.vx.vx_lr2d_edt_form_destroy(self.editor)
        self.vx.vx_lr2d_destroy(self.layer)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument('library')
    parser.add_argument('file')
    parser.add_argument('picture')
    parser.add_argument('--seconds', type=float)
    arguments = parser.parse_args()
    host = Host(Library(arguments.library), arguments.file, arguments.picture)
    host.run(arguments.seconds)
    host.close()


main()
