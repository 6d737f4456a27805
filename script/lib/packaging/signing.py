"""Signs programs and installers with somebody's certificate."""
import subprocess
from dataclasses import dataclass


@dataclass(frozen=True)
class Certificate:
    """A container with certificate and key, or a certificate whose key is in a file of its own."""
    file: str
    key: str | None
    password_file: str | None  # its first line is the password of the key
    time_stamps: str | None    # a service that confirms when something was signed

    def options(self):
        options = ["-certs", self.file, "-key", self.key] if self.key else ["-pkcs12", self.file]
        # Without any it would ask.
        options += ["-readpass", self.password_file] if self.password_file else ["-pass", ""]
        return options + (["-ts", self.time_stamps] if self.time_stamps else [])


def sign(path, certificate, name, when):
    """Signs the file where it is. Without a service for time stamps the same bytes come out for the same time."""
    signed = path.with_name(f"{path.name}.signed")
    result = subprocess.run(["osslsigncode", "sign", *certificate.options(), "-h", "sha256", "-n", name,
                             "-time", str(when), "-in", path, "-out", signed],
                            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if result.returncode:
        signed.unlink(missing_ok=True)
        raise SystemExit(f"error: {path.name} cannot be signed with {certificate.file}: {result.stdout.strip()}")
    signed.replace(path)
