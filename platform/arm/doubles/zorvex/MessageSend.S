// Sending messages on ARM: look the method up with all argument registers saved, then jump to it.
	.syntax	unified
	.thumb
	.text

	.macro	function name
	.p2align	2
	.globl	\name
	.def	\name
	.scl	2
	.type	32
	.endef
	.thumb_func
\name:
	.endm

// With a class in r0 and the selector in r1.
	.macro	lookUp
	bl	lookUpMethod
	mov	r12, r0
	vpop	{d0-d7}
	pop	{r0-r3, r4, lr}
	.endm

	.macro	save
	push	{r0-r3, r4, lr}
	vpush	{d0-d7}
	.endm

// objc_msgSend(receiver, selector, ...): a message to nil gives zero, whatever the result's type.
	function objc_msgSend
	cbz	r0, .Lnil
	save
	ldr	r0, [r0]
	lookUp
	bx	r12
.Lnil:
	movs	r1, #0
	vmov	d0, r0, r1
	bx	lr

// objc_msgSend_stret(result, receiver, selector, ...): the result's memory stays as it is for nil.
	function objc_msgSend_stret
	cbz	r1, .LnilStructure
	save
	ldr	r0, [r1]
	mov	r1, r2
	lookUp
	bx	r12
.LnilStructure:
	bx	lr

// objc_msgSendSuper2({receiver, class}, selector, ...): the search begins at the class's superclass.
	function objc_msgSendSuper2
	save
	ldr	r0, [r0, #4]
	ldr	r0, [r0, #4]
	lookUp
	ldr	r0, [r0]
	bx	r12

	function objc_msgSendSuper2_stret
	save
	ldr	r0, [r1, #4]
	ldr	r0, [r0, #4]
	mov	r1, r2
	lookUp
	ldr	r1, [r1]
	bx	r12
