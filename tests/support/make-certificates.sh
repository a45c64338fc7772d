#!/bin/sh
# make-certificates.sh DIR: a test authority (ca.pem) and the certificates of test servers on 127.0.0.1, each NAME.pem
# with its NAME.key: good, expired, wronghost (all three signed by the authority) and selfsigned.
set -eu
cd "$1"
here='subjectAltName=IP:127.0.0.1,DNS:localhost'
newkey='-newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes'

signed() { # name, alternative names, days
    openssl req -new $newkey -subj "/CN=test server" -addext "$2" -keyout "$1.key" -out "$1.csr"
    openssl x509 -req -in "$1.csr" -CA ca.pem -CAkey ca.key -CAcreateserial -copy_extensions copy -days "$3" -out "$1.pem"
}

{
    openssl req -x509 $newkey -subj "/CN=test authority" -days 2 -keyout ca.key -out ca.pem
    openssl req -x509 $newkey -subj "/CN=test server" -addext "$here" -days 2 -keyout selfsigned.key -out selfsigned.pem
    signed good "$here" 2
    signed wronghost 'subjectAltName=DNS:elsewhere.example' 2
    signed expired "$here" -1
} >certificates.log 2>&1 || { cat certificates.log >&2; exit 1; }
