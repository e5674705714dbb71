"""What the program prints comes out of a real queue, and a queue that refuses is told; see printing."""

import re
import subprocess
import unittest

import keyboard
from print_queue import PRINTER, PrintQueue
from program import Program

DOTS_PER_INCH = 72
INK = 128


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True).stdout


def pages_of(pdf):
    """The texts of the pages, with single spaces."""
    pages = output_of("pdftotext", "-layout", pdf, "-").decode().split("\f")[:-1]
    return [" ".join(page.split()) for page in pages]


def page_count(pdf):
    return int(re.search(r"Pages: +(\d+)", output_of("pdfinfo", pdf).decode())[1])


def ink_of(pdf):
    """Where the ink of the first page begins and ends, in 1/72 inch, the page in landscape."""
    picture = output_of("pdftoppm", "-gray", "-r", str(DOTS_PER_INCH), "-f", "1", "-l", "1", pdf)
    _, width, height, _, dots = picture.split(maxsplit=4)
    width, height = int(width), int(height)
    rows = [dots[y * width:(y + 1) * width] for y in range(height)]
    if height > width:
        rows = [bytes(row[x] for row in reversed(rows)) for x in range(width)]
    inked = [y for y, row in enumerate(rows) if min(row) < INK]
    columns = [x for x in range(len(rows[0])) if any(row[x] < INK for row in rows)]
    return columns[0], inked[0], columns[-1], inked[-1]


def ask_for_the_print_out(program, heading):
    program.window("Tarvik - ").part("menu item", "Nyomtatás").press()
    program.window("Listamező nyomtatása").part("text")
    keyboard.type_text(heading)
    keyboard.press("Return")
    program.wait_closed("Listamező nyomtatása")


class Printing(unittest.TestCase):

    def test_the_list_comes_out_of_the_default_printer_and_a_refusal_is_told(self):
        with PrintQueue() as queue, Program(without_alerts=True) as program:
            ask_for_the_print_out(program, "Minden tankolas")
            printed = queue.wait_printed()
            document, attributes = queue.sent()
            self.assertTrue(printed.name.startswith("Tarvik_"), printed.name)
            for attribute in (b"media", b"A4", b"print-scaling", b"none"):
                self.assertIn(attribute, attributes)
            pages = pages_of(document)
            for page in pages:
                self.assertTrue(page.startswith("Minden tankolas Dátum Km. óra Tankolás"), page[:80])
            self.assertRegex(pages[-1], r"Kilométer összesen: -?[\d ]+ km\. Tankolás összesen: [\d ]+,\d\d liter$")
            self.assertEqual(page_count(printed), len(pages))
            for edge, meant in zip(ink_of(printed), ink_of(document)):
                self.assertAlmostEqual(edge, meant, delta=3, msg="nothing is scaled or moved on the paper")

            queue.refuse()
            ask_for_the_print_out(program, "Nem sikerul")
            box = program.window(" H i b a !")
            texts = [part.name for part in box.walk() if part.role == "label"]
            self.assertTrue(any(text.startswith(f"A nyomtatás nem sikerült ({PRINTER}):\n") for text in texts), texts)
            self.assertEqual(len(queue.printed()), 1)


if __name__ == "__main__":
    unittest.main()
