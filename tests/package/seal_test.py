"""What stands beside a package: its sum, and a signature where a publisher's key is given."""

import os
import pathlib
import subprocess
import tempfile
import unittest

HOUSE = pathlib.Path(__file__).resolve().parent.parent.parent
SEAL = 'source tools/setup.sh; source tools/package/parts.sh; PUBLIC_KEY="$2"; seal "$1"'


class Seal(unittest.TestCase):

    def setUp(self):
        place = tempfile.TemporaryDirectory()
        self.addCleanup(place.cleanup)
        self.place = pathlib.Path(place.name)
        self.package = self.place / "package.tar.gz"
        self.package.write_bytes(b"abc")

    def make_keys(self, name):
        """A pair of keys without a password."""
        subprocess.run(["minisign", "-G", "-W", "-p", self.place / f"{name}.pub", "-s", self.place / name],
                       stdout=subprocess.DEVNULL, check=True)

    def seal(self, public_key, secret_key=None):
        environment = {name: value for name, value in os.environ.items() if name != "TARVIK_SIGNING_KEY"}
        if secret_key:
            environment["TARVIK_SIGNING_KEY"] = str(self.place / secret_key)
        command = ["bash", "-c", SEAL, "seal", self.package, self.place / public_key]
        return subprocess.run(command, cwd=HOUSE, env=environment, stderr=subprocess.PIPE, check=False)

    def signature(self):
        return self.place / "package.tar.gz.minisig"

    def test_the_sum_is_beside_it(self):
        self.assertEqual(self.seal("none").returncode, 0)
        self.assertEqual((self.place / "package.tar.gz.sha256").read_text(),
                         "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad  package.tar.gz\n")

    def test_without_a_key_it_says_so_and_an_older_signature_goes(self):
        self.signature().write_text("of another package")
        self.assertIn(b"Not signed", self.seal("none").stderr)
        self.assertFalse(self.signature().exists())

    def test_with_the_publishers_key_it_is_signed(self):
        self.make_keys("publisher")
        self.assertEqual(self.seal("publisher.pub", "publisher").returncode, 0)
        check = ["minisign", "-V", "-q", "-p", self.place / "publisher.pub", "-m", self.package]
        self.assertEqual(subprocess.run(check, check=False).returncode, 0)
        self.package.write_bytes(b"abd")
        self.assertNotEqual(subprocess.run(check, stderr=subprocess.DEVNULL, check=False).returncode, 0)

    def test_a_key_whose_public_half_is_not_the_repositorys_is_refused(self):
        self.make_keys("publisher")
        self.make_keys("other")
        self.assertIn(b"is not the public half", self.seal("publisher.pub", "other").stderr)
        self.assertFalse(self.signature().exists())
        self.assertIn(b"is not there", self.seal("missing.pub", "other").stderr)


if __name__ == "__main__":
    unittest.main()
