// The classic script defines the element some time after it has run.
customElements.whenDefined('zolt20-map-control').then(beginHost);
