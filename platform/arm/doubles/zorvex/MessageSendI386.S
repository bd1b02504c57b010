// Sending messages on i386, for the native build of the same sources.
	.text

	.macro	function name
	.globl	\name
	.type	\name, @function
\name:
	.endm

// Looks up selector \selector (an operand) in the class in %eax, with the stack aligned for the call,
// and jumps to the method.
	.macro	jumpToMethod selector
	movl	\selector, %edx
	subl	$4, %esp
	pushl	%edx
	pushl	%eax
	call	lookUpMethod
	addl	$12, %esp
	jmp	*%eax
	.endm

// A message to nil gives zero; a floating-point result would be on the x87 stack.
	function objc_msgSend_fpret
	movl	4(%esp), %eax
	testl	%eax, %eax
	jne	.Lsend
	fldz
	ret

	function objc_msgSend
	movl	4(%esp), %eax
	testl	%eax, %eax
	je	.Lnil
.Lsend:
	movl	(%eax), %eax
	jumpToMethod 8(%esp)
.Lnil:
	xorl	%edx, %edx
	ret

// The result's memory comes first and is popped by the callee.
	function objc_msgSend_stret
	movl	8(%esp), %eax
	testl	%eax, %eax
	je	.LnilStructure
	movl	(%eax), %eax
	jumpToMethod 12(%esp)
.LnilStructure:
	movl	4(%esp), %eax
	ret	$4

// The first argument is {receiver, class}: the receiver takes its place, the search begins at the
// class's superclass.
	function objc_msgSendSuper2
	movl	4(%esp), %ecx
	movl	(%ecx), %eax
	movl	%eax, 4(%esp)
	movl	4(%ecx), %eax
	movl	4(%eax), %eax
	jumpToMethod 8(%esp)

	function objc_msgSendSuper2_stret
	movl	8(%esp), %ecx
	movl	(%ecx), %eax
	movl	%eax, 8(%esp)
	movl	4(%ecx), %eax
	movl	4(%eax), %eax
	jumpToMethod 12(%esp)

	.section .note.GNU-stack,"",@progbits
