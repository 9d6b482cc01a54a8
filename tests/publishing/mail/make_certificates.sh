#!/usr/bin/env bash
# make_certificates.sh FOLDER   makes an authority of the test's own and certificates for localhost:
# good, expired, other (for another host) and alone (signed by nobody but itself), each NAME.pem with
# its key in NAME.key. The authority is authority.pem.
set -euo pipefail
cd "$1"

cat >openssl.cnf <<'END'
[ca]
default_ca = authority
[authority]
dir = .
database = ./index
new_certs_dir = .
serial = ./serial
certificate = authority.pem
private_key = authority.key
default_md = sha256
policy = names
copy_extensions = copy
[names]
commonName = supplied
[req]
distinguished_name = dn
[dn]
[authority_extensions]
basicConstraints = critical,CA:true
keyUsage = critical,keyCertSign
subjectKeyIdentifier = hash
END
: >index
echo 01 >serial

new_key=(-newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -config openssl.cnf)
here=subjectAltName=DNS:localhost,IP:127.0.0.1

openssl req -x509 "${new_key[@]}" -keyout authority.key -out authority.pem -days 30 \
    -subj "/CN=Authority of a test" -extensions authority_extensions

# signed NAME ALT-NAME START END
signed() {
    openssl req "${new_key[@]}" -keyout "$1.key" -out "$1.csr" -subj "/CN=$1" -addext "$2"
    openssl ca -batch -notext -config openssl.cnf -in "$1.csr" -out "$1.pem" -startdate "$3" -enddate "$4"
}
signed good "$here" "$(date -u -d yesterday +%y%m%d%H%M%SZ)" "$(date -u -d '+30 days' +%y%m%d%H%M%SZ)"
signed expired "$here" 200101000000Z 200201000000Z
signed other subjectAltName=DNS:mail.example.org \
    "$(date -u -d yesterday +%y%m%d%H%M%SZ)" "$(date -u -d '+30 days' +%y%m%d%H%M%SZ)"
openssl req -x509 "${new_key[@]}" -keyout alone.key -out alone.pem -days 30 -subj /CN=localhost \
    -addext "$here"
