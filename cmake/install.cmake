# filled in below: libraries, headers, package files
